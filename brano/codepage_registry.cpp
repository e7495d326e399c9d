// Builds and caches the description of each code page the first time it
// is used: which ICU converter serves it and how that converter behaves on
// the bytes where Windows conventions matter.
#include "codepage.h"

#include <unicode/ucnv.h>

#include <memory>
#include <mutex>
#include <unordered_map>

#include "codepage_names.h"

namespace brano {

namespace {

constexpr UChar kReplacementChar = 0xFFFD;
constexpr UChar kKatakanaMiddleDot = 0x30FB;

enum class ByteDecoding { Char, Truncated, Invalid };

// Decodes one byte alone with a fresh converter state.
ByteDecoding DecodeLoneByte(UConverter *converter, unsigned char byte, UChar *decoded)
{
    char source = (char)byte;
    UChar target[4];
    UErrorCode status = U_ZERO_ERROR;
    ucnv_reset(converter);
    int32_t length = ucnv_toUChars(converter, target, 4, &source, 1, &status);
    ucnv_reset(converter);
    if (status == U_TRUNCATED_CHAR_FOUND)
        return ByteDecoding::Truncated;
    if (U_FAILURE(status) || length != 1)
        return ByteDecoding::Invalid;
    *decoded = target[0];
    return ByteDecoding::Char;
}

// Encodes one UTF-16 unit alone; empty when it has no mapping.
std::string EncodeLoneUnit(UConverter *converter, UChar unit)
{
    char target[8];
    UErrorCode status = U_ZERO_ERROR;
    ucnv_reset(converter);
    int32_t length = ucnv_fromUChars(converter, target, sizeof target, &unit, 1, &status);
    ucnv_reset(converter);
    if (U_FAILURE(status) || length <= 0)
        return std::string();
    return std::string(target, (size_t)length);
}

bool DecodesTo(UConverter *converter, unsigned char byte, UChar expected)
{
    UChar decoded = 0;
    return DecodeLoneByte(converter, byte, &decoded) == ByteDecoding::Char && decoded == expected;
}

bool HasPcControlLayout(UConverter *converter)
{
    return DecodesTo(converter, 0x1A, 0x1C) && DecodesTo(converter, 0x1C, 0x7F) &&
           DecodesTo(converter, 0x7F, 0x1A);
}

// The code point ICU gives for an ASCII byte when the page has the IBM PC
// control layout.
UChar PcLayoutCodePoint(unsigned char byte)
{
    switch (byte) {
    case 0x1A: return 0x1C;
    case 0x1C: return 0x7F;
    case 0x7F: return 0x1A;
    default: return byte;
    }
}

bool IsStatelessType(UConverter *converter)
{
    switch (ucnv_getType(converter)) {
    case UCNV_SBCS:
    case UCNV_DBCS:
    case UCNV_MBCS:
    case UCNV_LATIN_1:
    case UCNV_US_ASCII:
        return true;
    default:
        return false;
    }
}

bool IsAsciiTransparent(UConverter *converter, bool pcLayout)
{
    if (!IsStatelessType(converter))
        return false;
    for (unsigned byte = 0; byte < 0x80; ++byte) {
        UChar icuValue = pcLayout ? PcLayoutCodePoint((unsigned char)byte) : (UChar)byte;
        if (!DecodesTo(converter, (unsigned char)byte, icuValue))
            return false;
        if (EncodeLoneUnit(converter, icuValue) != std::string(1, (char)byte))
            return false;
    }
    return true;
}

std::bitset<256> FindLeadBytes(UConverter *converter)
{
    std::bitset<256> leads;
    if (ucnv_getMaxCharSize(converter) < 2 || !IsStatelessType(converter))
        return leads;
    for (unsigned byte = 0x80; byte < 0x100; ++byte) {
        UChar ignored = 0;
        if (DecodeLoneByte(converter, (unsigned char)byte, &ignored) == ByteDecoding::Truncated)
            leads.set(byte);
    }
    return leads;
}

// Fills the decoding table of a stateless single-byte page.
void BuildSingleByteTable(UConverter *converter, CodePageInfo &info)
{
    if (ucnv_getMaxCharSize(converter) != 1 || !IsStatelessType(converter))
        return;
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        UChar decoded = 0;
        if (DecodeLoneByte(converter, (unsigned char)byte, &decoded) != ByteDecoding::Char)
            continue;
        if (info.swapsPcControls && byte < 0x80)
            decoded = (UChar)byte;
        info.singleByteTable[byte] = decoded;
        info.singleByteMapped.set(byte);
    }
    info.hasSingleByteTable = true;
}

std::string DefaultCharFor(UConverter *converter)
{
    std::string question = EncodeLoneUnit(converter, u'?');
    if (!question.empty())
        return question;
    char bytes[32]; // substitution bytes are at most 4
    int8_t length = sizeof bytes;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_getSubstChars(converter, bytes, &length, &status);
    return U_SUCCESS(status) && length > 0 ? std::string(bytes, (size_t)length) : std::string("?");
}

UConverter *OpenFirstAvailable(UINT codePage)
{
    for (const std::string &name : IcuNameCandidates(codePage)) {
        UErrorCode status = U_ZERO_ERROR;
        UConverter *converter = ucnv_open(name.c_str(), &status);
        if (U_SUCCESS(status) && converter) {
            UConverterType type = ucnv_getType(converter);
            bool unicodeForm = type == UCNV_UTF16 || type == UCNV_UTF16_BigEndian ||
                               type == UCNV_UTF16_LittleEndian || type == UCNV_UTF32 ||
                               type == UCNV_UTF32_BigEndian || type == UCNV_UTF32_LittleEndian;
            if (!unicodeForm)
                return converter;
        }
        ucnv_close(converter);
    }
    return nullptr;
}

bool IsIso2022OrEbcdicStatefulPage(UINT codePage)
{
    return (codePage >= 50220 && codePage <= 50229) || (codePage >= 57002 && codePage <= 57011);
}

void ApplyFlagRules(CodePageInfo &info)
{
    UINT id = info.id;
    info.flagsMustBeZero = id == CP_SYMBOL || id == CP_UTF7 || IsIso2022OrEbcdicStatefulPage(id);
    info.onlyInvalidCharsFlag = id == CP_UTF8 || id == 54936;
    info.refusesDefaultChar = id == CP_UTF7 || id == CP_UTF8 || id == 52936 || id == 54936 ||
                              IsIso2022OrEbcdicStatefulPage(id);
}

std::unique_ptr<CodePageInfo> DescribeSymbolPage()
{
    auto info = std::make_unique<CodePageInfo>();
    info->id = CP_SYMBOL;
    info->kind = CodePageKind::Symbol;
    ApplyFlagRules(*info);
    return info;
}

// The probes below must see errors rather than substitutes.
void StopOnErrors(UConverter *converter)
{
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
}

std::unique_ptr<CodePageInfo> DescribeIcuPage(UINT codePage)
{
    UConverter *converter = OpenFirstAvailable(codePage);
    if (!converter)
        return nullptr;
    StopOnErrors(converter);
    auto info = std::make_unique<CodePageInfo>();
    info->id = codePage;
    info->kind = codePage == CP_UTF8 ? CodePageKind::Utf8 : CodePageKind::Icu;
    info->swapsPcControls = HasPcControlLayout(converter);
    info->asciiTransparent = IsAsciiTransparent(converter, info->swapsPcControls);
    info->maxCharSize = ucnv_getMaxCharSize(converter);
    info->leadBytes = FindLeadBytes(converter);
    BuildSingleByteTable(converter, *info);
    info->defaultChar = DefaultCharFor(converter);
    if (codePage == CP_UTF8 || codePage == CP_UTF7)
        info->unicodeDefaultChar = kReplacementChar;
    else if (codePage == 932)
        info->unicodeDefaultChar = kKatakanaMiddleDot;
    ApplyFlagRules(*info);
    info->pool = PoolForConverter(converter); // restores ICU's default callbacks
    return info;
}

std::unique_ptr<CodePageInfo> DescribeCodePage(UINT codePage)
{
    if (codePage == CP_SYMBOL)
        return DescribeSymbolPage();
    return DescribeIcuPage(codePage);
}

struct PageRegistry {
    std::mutex mutex;
    std::unordered_map<UINT, std::unique_ptr<CodePageInfo>> pages;
};

PageRegistry &Registry()
{
    static PageRegistry *registry = new PageRegistry; // descriptions are never freed
    return *registry;
}

const CodePageInfo *LookUpOrDescribe(UINT codePage)
{
    PageRegistry &registry = Registry();
    std::lock_guard<std::mutex> lock(registry.mutex);
    auto found = registry.pages.find(codePage);
    if (found != registry.pages.end())
        return found->second.get();
    std::unique_ptr<CodePageInfo> info = DescribeCodePage(codePage);
    if (!info)
        return nullptr;
    const CodePageInfo *result = info.get();
    registry.pages.emplace(codePage, std::move(info));
    return result;
}

} // namespace

UINT ResolveCodePageAlias(UINT codePage)
{
    return codePage <= CP_THREAD_ACP ? GetACP() : codePage;
}

const CodePageInfo *FindCodePage(UINT codePage)
{
    // Most threads convert with one or two pages; remember the last one to
    // skip the shared lock.
    thread_local UINT lastPage = 0;
    thread_local const CodePageInfo *lastInfo = nullptr;
    UINT resolved = ResolveCodePageAlias(codePage);
    if (lastInfo && lastPage == resolved)
        return lastInfo;
    const CodePageInfo *info = LookUpOrDescribe(resolved);
    if (info) {
        lastPage = resolved;
        lastInfo = info;
    }
    return info;
}

} // namespace brano
