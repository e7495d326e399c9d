// ICU (CLDR) patterns and Win32 pictures share most letters; the
// differences are mapped field by field: years are written in full as
// Windows locales do, weekday names become "ddd"/"dddd", day periods "tt",
// eras "gg", and fields Windows has no letter for (time zones, fractions)
// are left out.
#include "locale_pictures.h"

namespace brano {

namespace {

bool IsAsciiLetter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

// Spacing characters CLDR uses where Windows pictures have a plain space,
// and direction marks that do not belong in a picture at all.
void AppendLiteralChar(char16_t c, std::u16string &literal)
{
    switch (c) {
    case 0x00A0: case 0x2007: case 0x2009: case 0x202F:
        literal += u' ';
        return;
    case 0x061C: case 0x200E: case 0x200F:
        return;
    default:
        literal += c;
    }
}

PictureToken Field(char16_t letter, int count)
{
    PictureToken token;
    token.letter = letter;
    token.count = count;
    return token;
}

int AtMost(int count, int limit)
{
    return count < limit ? count : limit;
}

// The Windows field for an ICU field, or a token with letter 0 and no
// text when Windows has none.
PictureToken WindowsField(char16_t letter, int count)
{
    switch (letter) {
    case u'y': case u'Y': case u'u': case u'U': case u'r':
        return Field(u'y', 4);
    case u'M': case u'L':
        return Field(u'M', AtMost(count, 4));
    case u'd':
        return Field(u'd', AtMost(count, 2));
    case u'E':
        return Field(u'd', count >= 4 ? 4 : 3);
    case u'c': case u'e':
        return count >= 3 ? Field(u'd', count >= 4 ? 4 : 3) : PictureToken();
    case u'G':
        return Field(u'g', 2);
    case u'h': case u'K':
        return Field(u'h', AtMost(count, 2));
    case u'H': case u'k':
        return Field(u'H', AtMost(count, 2));
    case u'm': case u's':
        return Field(letter, AtMost(count, 2));
    case u'a': case u'b': case u'B':
        return Field(u't', 2);
    default:
        return PictureToken();
    }
}

void AppendLiteral(std::vector<PictureToken> &tokens, const std::u16string &text)
{
    if (text.empty())
        return;
    if (!tokens.empty() && tokens.back().letter == 0)
        tokens.back().literal += text;
    else
        tokens.push_back(PictureToken{0, 0, text});
}

// Reads a quoted section starting after the opening quote; returns the
// index after the closing quote.  '' inside stands for one quote.
size_t ReadQuoted(const std::u16string &pattern, size_t index, std::u16string &text)
{
    while (index < pattern.size()) {
        char16_t c = pattern[index++];
        if (c != u'\'') {
            AppendLiteralChar(c, text);
            continue;
        }
        if (index < pattern.size() && pattern[index] == u'\'') {
            text += u'\'';
            ++index;
            continue;
        }
        break;
    }
    return index;
}

size_t RunLength(const std::u16string &text, size_t index)
{
    size_t end = index;
    while (end < text.size() && text[end] == text[index])
        ++end;
    return end - index;
}

std::vector<PictureToken> TokensFromIcu(const std::u16string &pattern)
{
    std::vector<PictureToken> tokens;
    size_t index = 0;
    while (index < pattern.size()) {
        char16_t c = pattern[index];
        if (IsAsciiLetter(c)) {
            size_t count = RunLength(pattern, index);
            PictureToken field = WindowsField(c, (int)count);
            if (field.letter)
                tokens.push_back(field);
            index += count;
        } else if (c == u'\'') {
            std::u16string quoted;
            if (index + 1 < pattern.size() && pattern[index + 1] == u'\'') {
                quoted.push_back(u'\'');
                index += 2;
            } else {
                index = ReadQuoted(pattern, index + 1, quoted);
            }
            AppendLiteral(tokens, quoted);
        } else {
            std::u16string literal;
            AppendLiteralChar(c, literal);
            AppendLiteral(tokens, literal);
            ++index;
        }
    }
    return tokens;
}

bool NeedsQuotes(const std::u16string &literal)
{
    for (char16_t c : literal) {
        if (IsAsciiLetter(c) || c == u'\'')
            return true;
    }
    return false;
}

std::u16string QuotedLiteral(const std::u16string &literal)
{
    if (!NeedsQuotes(literal))
        return literal;
    std::u16string quoted = u"'";
    for (char16_t c : literal) {
        quoted += c;
        if (c == u'\'')
            quoted += u'\'';
    }
    return quoted + u"'";
}

std::u16string CollapseSpaces(const std::u16string &text)
{
    std::u16string result;
    for (char16_t c : text) {
        if (c == u' ' && !result.empty() && result.back() == u' ')
            continue;
        result += c;
    }
    return result;
}

std::u16string Serialize(const std::vector<PictureToken> &tokens)
{
    std::u16string picture;
    for (const PictureToken &token : tokens) {
        if (token.letter)
            picture.append((size_t)token.count, token.letter);
        else
            picture += QuotedLiteral(CollapseSpaces(token.literal));
    }
    return picture;
}

// Removes the spaces a dropped field leaves at either end.
void TrimLiteralEnds(std::vector<PictureToken> &tokens)
{
    if (!tokens.empty() && tokens.back().letter == 0) {
        std::u16string &last = tokens.back().literal;
        size_t end = last.find_last_not_of(u' ');
        last.erase(end == std::u16string::npos ? 0 : end + 1);
    }
    if (!tokens.empty() && tokens.front().letter == 0) {
        std::u16string &first = tokens.front().literal;
        size_t start = first.find_first_not_of(u' ');
        first.erase(0, start == std::u16string::npos ? first.size() : start);
    }
    while (!tokens.empty() && tokens.back().letter == 0 && tokens.back().literal.empty())
        tokens.pop_back();
    if (!tokens.empty() && tokens.front().letter == 0 && tokens.front().literal.empty())
        tokens.erase(tokens.begin());
}

bool IsDateNumberField(const PictureToken &token)
{
    return token.letter == u'y' || token.letter == u'M' || (token.letter == u'd' && token.count <= 2);
}

bool IsHourField(const PictureToken &token)
{
    return token.letter == u'h' || token.letter == u'H';
}

// The literal right after the first token matching `first`, when a field
// follows it.
template <typename Predicate>
std::u16string LiteralAfter(const std::vector<PictureToken> &tokens, Predicate first, const char16_t *fallback)
{
    for (size_t i = 0; i + 2 < tokens.size(); ++i) {
        if (first(tokens[i]) && tokens[i + 1].letter == 0 && tokens[i + 2].letter != 0)
            return tokens[i + 1].literal;
    }
    return fallback;
}

} // namespace

std::u16string WindowsPictureFromIcu(const std::u16string &icuPattern)
{
    std::vector<PictureToken> tokens = TokensFromIcu(icuPattern);
    TrimLiteralEnds(tokens);
    return Serialize(tokens);
}

std::vector<PictureToken> TokenizePicture(const std::u16string &picture)
{
    std::vector<PictureToken> tokens;
    size_t index = 0;
    while (index < picture.size()) {
        char16_t c = picture[index];
        if (c == u'\'') {
            std::u16string quoted;
            index = ReadQuoted(picture, index + 1, quoted);
            AppendLiteral(tokens, quoted);
        } else if (IsAsciiLetter(c)) {
            size_t count = RunLength(picture, index);
            tokens.push_back(Field(c, (int)count));
            index += count;
        } else {
            AppendLiteral(tokens, std::u16string(1, c));
            ++index;
        }
    }
    return tokens;
}

std::u16string DateSeparator(const std::vector<PictureToken> &tokens)
{
    return LiteralAfter(tokens, IsDateNumberField, u"/");
}

std::u16string TimeSeparator(const std::vector<PictureToken> &tokens)
{
    return LiteralAfter(tokens, IsHourField, u":");
}

int DateOrder(const std::vector<PictureToken> &tokens)
{
    for (const PictureToken &token : tokens) {
        if (!IsDateNumberField(token))
            continue;
        if (token.letter == u'M')
            return 0;
        if (token.letter == u'd')
            return 1;
        return 2;
    }
    return 0;
}

int FieldWidth(const std::vector<PictureToken> &tokens, char16_t letter)
{
    for (const PictureToken &token : tokens) {
        if (token.letter == letter && (letter != u'd' || token.count <= 2))
            return token.count;
    }
    return 0;
}

bool HasField(const std::vector<PictureToken> &tokens, char16_t letter)
{
    for (const PictureToken &token : tokens) {
        if (token.letter == letter)
            return true;
    }
    return false;
}

bool MarkerPrecedesHour(const std::vector<PictureToken> &tokens)
{
    for (const PictureToken &token : tokens) {
        if (token.letter == u't')
            return true;
        if (IsHourField(token))
            return false;
    }
    return false;
}

} // namespace brano
