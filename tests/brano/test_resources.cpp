// Finding, loading and registering resources (resources/test.rc, and
// resource files built in memory).
#include <windows.h>

#include "support/expect_last_error.h"
#include "resources/test_resource_ids.h"

#include <cstdint>
#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr WORD kRtRcData = 10;

LPCSTR Id(WORD id)
{
    return MAKEINTRESOURCEA(id);
}

std::vector<BYTE> BytesOf(HRSRC resource)
{
    const BYTE *data = static_cast<const BYTE *>(LockResource(LoadResource(nullptr, resource)));
    if (data == nullptr)
        return {};
    return std::vector<BYTE>(data, data + SizeofResource(nullptr, resource));
}

HMODULE LibraryWithoutResources()
{
    Dl_info info;
    dladdr(reinterpret_cast<const void *>(&FindResourceA), &info);
    return static_cast<HMODULE>(info.dli_fbase);
}

void ExpectFindFails(HMODULE module, LPCSTR name, LPCSTR type, DWORD error)
{
    EXPECT_FAILS_WITH(FindResourceA(module, name, type), nullptr, error);
}

// Writes .res files: the empty opening record, then resources with numeric
// or string types and names.
class ResFileBuilder {
public:
    ResFileBuilder() { AddRecord(Key(WORD(0)), Key(WORD(0)), 0, {}); }

    struct Key {
        Key(WORD id) : id(id) {}
        Key(const char *name) : name(name) {}
        WORD id = 0;
        const char *name = nullptr;
    };

    ResFileBuilder &Add(Key type, Key name, const std::string &data, WORD language = 0x0409)
    {
        AddRecord(type, name, language, std::vector<BYTE>(data.begin(), data.end()));
        return *this;
    }

    const std::vector<BYTE> &Bytes() const { return m_bytes; }

private:
    void PutWord(std::vector<BYTE> &out, WORD value)
    {
        out.push_back(static_cast<BYTE>(value & 0xFF));
        out.push_back(static_cast<BYTE>(value >> 8));
    }
    void PutDword(std::vector<BYTE> &out, DWORD value)
    {
        PutWord(out, static_cast<WORD>(value & 0xFFFF));
        PutWord(out, static_cast<WORD>(value >> 16));
    }
    void PutKey(std::vector<BYTE> &out, const Key &key)
    {
        if (key.name == nullptr) {
            PutWord(out, 0xFFFF);
            PutWord(out, key.id);
        } else {
            for (const char *c = key.name; *c != '\0'; ++c)
                PutWord(out, static_cast<BYTE>(*c));
            PutWord(out, 0);
        }
    }
    void AddRecord(const Key &type, const Key &name, WORD language, const std::vector<BYTE> &data)
    {
        std::vector<BYTE> header;
        PutKey(header, type);
        PutKey(header, name);  // the name follows the type without padding
        while ((header.size() + 8) % 4 != 0)
            header.push_back(0);
        PutDword(header, 0);          // DataVersion
        PutWord(header, 0x1030);      // MemoryFlags
        PutWord(header, language);
        PutDword(header, 0);          // Version
        PutDword(header, 0);          // Characteristics
        PutDword(m_bytes, static_cast<DWORD>(data.size()));
        PutDword(m_bytes, static_cast<DWORD>(header.size() + 8));
        m_bytes.insert(m_bytes.end(), header.begin(), header.end());
        m_bytes.insert(m_bytes.end(), data.begin(), data.end());
        while (m_bytes.size() % 4 != 0)
            m_bytes.push_back(0);
    }

    std::vector<BYTE> m_bytes;
};

// A stand-in module handle: any non-null value may carry registered data.
HMODULE FakeModule(int which)
{
    static char s_modules[4];
    return reinterpret_cast<HMODULE>(&s_modules[which]);
}

} // namespace

TEST(ResourceLookup, RcDataByIdOrNumberFormFromTheMainModule)
{
    HRSRC resource = FindResourceA(nullptr, Id(IDR_BYTES), Id(kRtRcData));
    ASSERT_NE(resource, nullptr);
    EXPECT_EQ(SizeofResource(nullptr, resource), 11u);
    const std::vector<BYTE> expected = {0x01, 0x02, 0x03, 0x04, 0x78, 0x56, 0x34, 0x12, 'x', 'y', 'z'};
    EXPECT_EQ(BytesOf(resource), expected);
    HGLOBAL data = LoadResource(nullptr, resource);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(LockResource(data)) % 4, 0u) << "resource data is DWORD-aligned";
    EXPECT_FALSE(FreeResource(data));
    EXPECT_EQ(LockResource(data), data) << "still usable after FreeResource";
    EXPECT_FALSE(FreeResource(nullptr));

    EXPECT_EQ(FindResourceA(GetModuleHandleA(nullptr), Id(IDR_BYTES), Id(kRtRcData)), resource);
    // "#number" names the id.
    EXPECT_EQ(FindResourceA(nullptr, "#301", "#10"), resource);
    EXPECT_EQ(FindResourceA(nullptr, "#301", Id(kRtRcData)), resource);
    EXPECT_EQ(FindResourceA(nullptr, Id(IDR_BYTES), "#010"), resource);
}

TEST(ResourceLookup, NamesIgnoreCaseAndTheNeutralLanguageIsPreferred)
{
    HRSRC upper = FindResourceA(nullptr, "MYDATA", "CUSTOM");
    ASSERT_NE(upper, nullptr);
    EXPECT_EQ(FindResourceA(nullptr, "mydata", "custom"), upper);
    EXPECT_EQ(FindResourceA(nullptr, "MyData", "cUsToM"), upper);
    const std::vector<BYTE> payload = {'p', 'a', 'y', 'l', 'o', 'a', 'd'};
    EXPECT_EQ(BytesOf(upper), payload);
    const std::vector<BYTE> neutral = {'n', 'e', 'u', 't', 'r', 'a', 'l'};
    EXPECT_EQ(BytesOf(FindResourceA(nullptr, Id(IDR_LANGUAGES), Id(kRtRcData))), neutral);
}

TEST(ResourceErrors, UnknownNullOrMalformedNamesAndTypesAndBadModules)
{
    ExpectFindFails(nullptr, Id(IDR_BYTES), Id(999), ERROR_RESOURCE_TYPE_NOT_FOUND);
    ExpectFindFails(nullptr, Id(999), Id(kRtRcData), ERROR_RESOURCE_NAME_NOT_FOUND);
    ExpectFindFails(nullptr, "NOSUCHNAME", "CUSTOM", ERROR_RESOURCE_NAME_NOT_FOUND);
    ExpectFindFails(nullptr, "MYDATA", "NOSUCHTYPE", ERROR_RESOURCE_TYPE_NOT_FOUND);
    ExpectFindFails(nullptr, "MYDATA", Id(kRtRcData), ERROR_RESOURCE_NAME_NOT_FOUND);
    // A null name or type is id zero.
    ExpectFindFails(nullptr, nullptr, Id(kRtRcData), ERROR_RESOURCE_NAME_NOT_FOUND);
    ExpectFindFails(nullptr, Id(IDR_BYTES), nullptr, ERROR_RESOURCE_TYPE_NOT_FOUND);
    ExpectFindFails(nullptr, nullptr, nullptr, ERROR_RESOURCE_TYPE_NOT_FOUND);
    for (const char *name : {"#", "#abc", "#12x", "#70000", "#1234567", "#-1"})
        ExpectFindFails(nullptr, name, Id(kRtRcData), ERROR_INVALID_PARAMETER);
    ExpectFindFails(nullptr, Id(IDR_BYTES), "#", ERROR_INVALID_PARAMETER);
    ExpectFindFails(reinterpret_cast<HMODULE>(0x12340000), Id(IDR_BYTES), Id(kRtRcData), ERROR_MOD_NOT_FOUND);
    ExpectFindFails(reinterpret_cast<HMODULE>(-1), Id(IDR_BYTES), Id(kRtRcData), ERROR_MOD_NOT_FOUND);
    ExpectFindFails(LibraryWithoutResources(), Id(IDR_BYTES), Id(kRtRcData), ERROR_RESOURCE_DATA_NOT_FOUND);
}

TEST(ResourceErrors, ForgedHandlesFailWithoutCrashing)
{
    int local[16] = {};
    const HRSRC forged[] = {nullptr, reinterpret_cast<HRSRC>(1), reinterpret_cast<HRSRC>(local),
                            reinterpret_cast<HRSRC>(~static_cast<uintptr_t>(0)),
                            reinterpret_cast<HRSRC>(0xdeadbeef0000)};
    for (HRSRC handle : forged) {
        EXPECT_FAILS_WITH(LoadResource(nullptr, handle), nullptr, ERROR_INVALID_PARAMETER);
        EXPECT_FAILS_WITH(SizeofResource(nullptr, handle), 0u, ERROR_INVALID_PARAMETER);
    }
    EXPECT_EQ(LockResource(nullptr), nullptr);
    EXPECT_FAILS_WITH(LockResource(local), nullptr, ERROR_INVALID_HANDLE);
    // The HRSRC itself is not an HGLOBAL.
    HRSRC real = FindResourceA(nullptr, Id(IDR_BYTES), Id(kRtRcData));
    EXPECT_EQ(LockResource(reinterpret_cast<HGLOBAL>(real)), nullptr);
}

TEST(ResourceRegistration, RegisteredDataIsFoundAndWithdrawn)
{
    ResFileBuilder file;
    file.Add(kRtRcData, 7, "seven").Add("Things", "lower", "named");
    HMODULE module = FakeModule(0);
    ASSERT_TRUE(BranoRegisterModuleResources(module, file.Bytes().data(), file.Bytes().size()));
    EXPECT_TRUE(BranoRegisterModuleResources(module, file.Bytes().data(), file.Bytes().size()))
        << "registering the same block twice is harmless";

    HRSRC seven = FindResourceA(module, Id(7), Id(kRtRcData));
    ASSERT_NE(seven, nullptr);
    EXPECT_EQ(SizeofResource(module, seven), 5u);
    EXPECT_EQ(std::memcmp(LockResource(LoadResource(module, seven)), "seven", 5), 0);
    HRSRC named = FindResourceA(module, "LOWER", "things");
    ASSERT_NE(named, nullptr);
    EXPECT_EQ(SizeofResource(module, named), 5u);
    EXPECT_EQ(FindResourceA(nullptr, Id(7), Id(kRtRcData)), nullptr) << "other modules are separate";

    HGLOBAL data = LoadResource(module, seven);
    EXPECT_TRUE(BranoUnregisterModuleResources(module, file.Bytes().data()));
    EXPECT_FAILS_WITH(LoadResource(module, seven), nullptr, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(LockResource(data), nullptr);
    ExpectFindFails(module, Id(7), Id(kRtRcData), ERROR_MOD_NOT_FOUND);
    EXPECT_FAILS_WITH(BranoUnregisterModuleResources(module, file.Bytes().data()), FALSE, ERROR_INVALID_PARAMETER);
}

TEST(ResourceRegistration, BlocksOfOneModuleAddUpAndMisalignedDataIsServedAligned)
{
    ResFileBuilder first;
    first.Add(kRtRcData, 1, "one").Add(kRtRcData, 3, "first three");
    ResFileBuilder second;
    second.Add(kRtRcData, 2, "two").Add(kRtRcData, 3, "second three");
    HMODULE module = FakeModule(1);
    ASSERT_TRUE(BranoRegisterModuleResources(module, first.Bytes().data(), first.Bytes().size()));
    ASSERT_TRUE(BranoRegisterModuleResources(module, second.Bytes().data(), second.Bytes().size()));
    EXPECT_NE(FindResourceA(module, Id(1), Id(kRtRcData)), nullptr);
    EXPECT_NE(FindResourceA(module, Id(2), Id(kRtRcData)), nullptr);
    HRSRC three = FindResourceA(module, Id(3), Id(kRtRcData));
    ASSERT_NE(three, nullptr);
    EXPECT_EQ(SizeofResource(module, three), 11u) << "the first registration wins";

    EXPECT_TRUE(BranoUnregisterModuleResources(module, first.Bytes().data()));
    EXPECT_EQ(FindResourceA(module, Id(1), Id(kRtRcData)), nullptr);
    three = FindResourceA(module, Id(3), Id(kRtRcData));
    ASSERT_NE(three, nullptr);
    EXPECT_EQ(SizeofResource(module, three), 12u);
    EXPECT_TRUE(BranoUnregisterModuleResources(module, second.Bytes().data()));

    ResFileBuilder misaligned;
    misaligned.Add(kRtRcData, 5, "aligned please");
    std::vector<BYTE> storage(misaligned.Bytes().size() + 1);
    std::memcpy(&storage[1], misaligned.Bytes().data(), misaligned.Bytes().size());
    HMODULE other = FakeModule(2);
    ASSERT_TRUE(BranoRegisterModuleResources(other, &storage[1], misaligned.Bytes().size()));
    HRSRC resource = FindResourceA(other, Id(5), Id(kRtRcData));
    ASSERT_NE(resource, nullptr);
    const void *data = LockResource(LoadResource(other, resource));
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(data) % 4, 0u);
    EXPECT_EQ(std::memcmp(data, "aligned please", 14), 0);
    EXPECT_TRUE(BranoUnregisterModuleResources(other, &storage[1]));
}

TEST(ResourceRegistration, MalformedDataIsRejected)
{
    ResFileBuilder file;
    file.Add(kRtRcData, 9, "nine").Add("NAMED", 4, "x");
    const std::vector<BYTE> &good = file.Bytes();
    HMODULE module = FakeModule(3);

    std::vector<std::vector<BYTE>> bad;
    bad.push_back(std::vector<BYTE>(good.begin() + 32, good.end()));   // no opening record
    for (size_t cut : {size_t(4), size_t(31), size_t(40), size_t(60), good.size() - 6})
        bad.push_back(std::vector<BYTE>(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(cut)));
    std::vector<BYTE> hugeData = good;
    hugeData[32] = 0xFF; hugeData[33] = 0xFF; hugeData[34] = 0xFF; hugeData[35] = 0x7F;
    bad.push_back(hugeData);
    std::vector<BYTE> tinyHeader = good;
    tinyHeader[36] = 4; tinyHeader[37] = 0; tinyHeader[38] = 0; tinyHeader[39] = 0;
    bad.push_back(tinyHeader);
    std::vector<BYTE> unterminatedName(good.begin(), good.end());
    // The second record's header is cut to end inside its type string.
    const size_t second = 32 + 32 + 4;
    unterminatedName[second + 4] = 10;
    unterminatedName[second + 5] = 0;
    bad.push_back(unterminatedName);
    bad.push_back(std::vector<BYTE>(64, 0xFF));

    for (size_t i = 0; i < bad.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_FAILS_WITH(BranoRegisterModuleResources(module, bad[i].data(), bad[i].size()), FALSE,
                          ERROR_INVALID_DATA);
    }
    EXPECT_FAILS_WITH(BranoRegisterModuleResources(module, good.data(), 0), FALSE, ERROR_INVALID_DATA);
    EXPECT_FAILS_WITH(BranoRegisterModuleResources(module, nullptr, 100), FALSE, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(BranoRegisterModuleResources(nullptr, good.data(), good.size()), FALSE,
                      ERROR_INVALID_PARAMETER);
    ExpectFindFails(module, Id(9), Id(kRtRcData), ERROR_MOD_NOT_FOUND);
}
