// Computes locale information the way Windows presents it, from ICU data
// and a few tables: names, codes, number and currency formats, date and
// time pictures, and calendar names.  Types are grouped by area; each
// group answers the types it knows.
#include "locale_values.h"

#include <cstdio>

#include "icu_locale_data.h"
#include "locale_codepages.h"
#include "locale_pictures.h"
#include "locale_tables.h"

namespace brano {

namespace {

const char16_t kInvariantLanguage[] = u"Invariant Language";
const char16_t kInvariantCountry[] = u"Invariant Country";

std::u16string Widen(const std::string &ascii)
{
    return std::u16string(ascii.begin(), ascii.end());
}

std::u16string Upper(const std::string &ascii)
{
    std::u16string text;
    for (char c : ascii)
        text += (char16_t)(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    return text;
}

void SetText(LocaleValue &value, std::u16string text)
{
    value.numeric = false;
    value.text = std::move(text);
}

void SetNumber(LocaleValue &value, DWORD number)
{
    value.numeric = true;
    value.number = number;
    value.text = Widen(std::to_string(number));
}

// Language identifiers are shown as four hexadecimal digits ("0409").
void SetHexNumber(LocaleValue &value, DWORD number)
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "%04x", (unsigned)number);
    value.numeric = true;
    value.number = number;
    value.text = Widen(digits);
}

// The language the user interface speaks: that of the process locale.
const std::string &InterfaceLocale()
{
    return ProcessLocaleIdentity().icuName;
}

UINT AnsiCodePageOf(const LocaleIdentity &locale)
{
    // The process locale's ANSI page is the one the process converts with.
    if (locale.lcid == ProcessLocaleIdentity().lcid)
        return GetACP();
    return AnsiCodePageForLanguage(LanguageCode(locale.icuName), RegionCode(locale.icuName));
}

std::u16string LanguageAbbreviation(const LocaleIdentity &locale)
{
    std::string language = LanguageCode(locale.icuName);
    std::string abbreviation = WindowsLanguageAbbreviation(language, RegionCode(locale.icuName));
    return abbreviation.empty() ? Upper(Iso3LanguageCode(locale.icuName)) : Widen(abbreviation);
}

bool QueryInvariantName(LCTYPE type, LocaleValue &value)
{
    switch (type) {
    case LOCALE_SLANGUAGE: SetText(value, u"Invariant Language (Invariant Country)"); return true;
    case LOCALE_SENGLANGUAGE:
    case LOCALE_SNATIVELANGNAME: SetText(value, kInvariantLanguage); return true;
    case LOCALE_SABBREVLANGNAME: SetText(value, u"IVL"); return true;
    case LOCALE_SCOUNTRY:
    case LOCALE_SENGCOUNTRY:
    case LOCALE_SNATIVECTRYNAME: SetText(value, kInvariantCountry); return true;
    case LOCALE_SABBREVCTRYNAME: SetText(value, u"IVC"); return true;
    case LOCALE_SISO639LANGNAME: SetText(value, u"iv"); return true;
    case LOCALE_SISO3166CTRYNAME: SetText(value, u"IV"); return true;
    default: return false;
    }
}

bool QueryName(const LocaleIdentity &locale, LCTYPE type, LocaleValue &value)
{
    if (locale.invariant && QueryInvariantName(type, value))
        return true;
    const std::string &name = locale.icuName;
    switch (type) {
    case LOCALE_SLANGUAGE: SetText(value, DisplayName(name, InterfaceLocale())); return true;
    case LOCALE_SENGLANGUAGE: SetText(value, DisplayLanguage(name, "en")); return true;
    case LOCALE_SNATIVELANGNAME: SetText(value, DisplayLanguage(name, name)); return true;
    case LOCALE_SABBREVLANGNAME: SetText(value, LanguageAbbreviation(locale)); return true;
    case LOCALE_SCOUNTRY: SetText(value, DisplayCountry(name, InterfaceLocale())); return true;
    case LOCALE_SENGCOUNTRY: SetText(value, DisplayCountry(name, "en")); return true;
    case LOCALE_SNATIVECTRYNAME: SetText(value, DisplayCountry(name, name)); return true;
    case LOCALE_SABBREVCTRYNAME: SetText(value, Widen(Iso3RegionCode(name))); return true;
    case LOCALE_SISO639LANGNAME: SetText(value, Widen(LanguageCode(name))); return true;
    case LOCALE_SISO3166CTRYNAME: SetText(value, Widen(RegionCode(name))); return true;
    default: return false;
    }
}

bool QueryCode(const LocaleIdentity &locale, LCTYPE type, LocaleValue &value)
{
    UINT ansi = AnsiCodePageOf(locale);
    switch (type) {
    case LOCALE_ILANGUAGE:
    case LOCALE_IDEFAULTLANGUAGE: SetHexNumber(value, LANGIDFROMLCID(locale.lcid)); return true;
    case LOCALE_ICOUNTRY:
    case LOCALE_IDEFAULTCOUNTRY:
        SetNumber(value, locale.invariant ? 1 : CountryDiallingCode(RegionCode(locale.icuName)));
        return true;
    case LOCALE_IDEFAULTANSICODEPAGE: SetNumber(value, ansi); return true;
    case LOCALE_IDEFAULTCODEPAGE: SetNumber(value, OemCodePageForAnsi(ansi)); return true;
    case LOCALE_IDEFAULTMACCODEPAGE: SetNumber(value, MacCodePageForAnsi(ansi)); return true;
    case LOCALE_IMEASURE: SetNumber(value, UsesUsMeasurement(locale.icuName) ? 1 : 0); return true;
    default: return false;
    }
}

// "3;0" for groups of three, "3;2;0" for Indian-style grouping.
std::u16string GroupingText(const GroupingSizes &sizes)
{
    std::string text = std::to_string(sizes.primary);
    if (sizes.secondary)
        text += ";" + std::to_string(sizes.secondary);
    return Widen(text + ";0");
}

bool QueryNumberFormat(const LocaleIdentity &locale, LCTYPE type, LocaleValue &value)
{
    const std::string &name = locale.icuName;
    switch (type) {
    case LOCALE_SDECIMAL: SetText(value, NumberSymbol(name, UNUM_DECIMAL_SEPARATOR_SYMBOL)); return true;
    case LOCALE_STHOUSAND: SetText(value, NumberSymbol(name, UNUM_GROUPING_SEPARATOR_SYMBOL)); return true;
    case LOCALE_SGROUPING: SetText(value, GroupingText(NumberGrouping(name, false))); return true;
    case LOCALE_SLIST:
        // Where the comma is the decimal point, lists are separated by ';'.
        SetText(value, NumberSymbol(name, UNUM_DECIMAL_SEPARATOR_SYMBOL) == u"," ? u";" : u",");
        return true;
    case LOCALE_IDIGITS: SetNumber(value, 2); return true;
    case LOCALE_ILZERO: SetNumber(value, 1); return true;
    case LOCALE_INEGNUMBER: SetNumber(value, 1); return true;
    case LOCALE_SNATIVEDIGITS: SetText(value, NativeDigits(name)); return true;
    case LOCALE_SPOSITIVESIGN: SetText(value, u""); return true;
    case LOCALE_SNEGATIVESIGN: SetText(value, NumberSymbol(name, UNUM_MINUS_SIGN_SYMBOL)); return true;
    default: return false;
    }
}

// A currency pattern reduced to a shape: "$" for the symbol, "1.1" for the
// number, "-", "(", ")" and single spaces; everything else dropped.
std::u16string CurrencyShape(const std::u16string &pattern)
{
    std::u16string shape;
    for (char16_t c : pattern) {
        bool digitPart = c == u'#' || c == u'0' || c == u',' || c == u'.';
        if (digitPart) {
            if (shape.size() < 3 || shape.compare(shape.size() - 3, 3, u"1.1") != 0)
                shape += u"1.1";
        } else if (c == 0x00A4) {
            if (shape.empty() || shape.back() != u'$')
                shape += u'$';
        } else if (c == u'-' || c == u'(' || c == u')') {
            shape += c;
        } else if (c == u' ' || c == 0x00A0 || c == 0x202F) {
            if (shape.empty() || shape.back() != u' ')
                shape += u' ';
        }
    }
    return shape;
}

DWORD IndexOfShape(const std::u16string &shape, const char16_t *const *shapes, DWORD count, DWORD fallback)
{
    for (DWORD i = 0; i < count; ++i) {
        if (shape == shapes[i])
            return i;
    }
    return fallback;
}

DWORD PositiveCurrencyFormat(const std::u16string &pattern)
{
    static const char16_t *const kShapes[] = {u"$1.1", u"1.1$", u"$ 1.1", u"1.1 $"};
    std::u16string positive = pattern.substr(0, pattern.find(u';'));
    return IndexOfShape(CurrencyShape(positive), kShapes, 4, 0);
}

DWORD NegativeCurrencyFormat(const std::u16string &pattern)
{
    static const char16_t *const kShapes[] = {
        u"($1.1)", u"-$1.1",  u"$-1.1",  u"$1.1-",  u"(1.1$)", u"-1.1$",   u"1.1-$",   u"1.1$-",
        u"-1.1 $", u"-$ 1.1", u"1.1 $-", u"$ 1.1-", u"$ -1.1", u"1.1- $", u"($ 1.1)", u"(1.1 $)",
    };
    size_t separator = pattern.find(u';');
    std::u16string negative =
        separator == std::u16string::npos ? u"-" + pattern : pattern.substr(separator + 1);
    return IndexOfShape(CurrencyShape(negative), kShapes, 16, 1);
}

bool QueryCurrencyFormat(const LocaleIdentity &locale, LCTYPE type, LocaleValue &value)
{
    const std::string &name = locale.icuName;
    switch (type) {
    case LOCALE_SCURRENCY: SetText(value, NumberSymbol(name, UNUM_CURRENCY_SYMBOL)); return true;
    case LOCALE_SINTLSYMBOL: SetText(value, NumberSymbol(name, UNUM_INTL_CURRENCY_SYMBOL)); return true;
    case LOCALE_SMONDECIMALSEP: SetText(value, NumberSymbol(name, UNUM_MONETARY_SEPARATOR_SYMBOL)); return true;
    case LOCALE_SMONTHOUSANDSEP:
        SetText(value, NumberSymbol(name, UNUM_MONETARY_GROUPING_SEPARATOR_SYMBOL));
        return true;
    case LOCALE_SMONGROUPING: SetText(value, GroupingText(NumberGrouping(name, true))); return true;
    case LOCALE_ICURRDIGITS:
    case LOCALE_IINTLCURRDIGITS: SetNumber(value, (DWORD)CurrencyFractionDigits(name)); return true;
    case LOCALE_ICURRENCY: SetNumber(value, PositiveCurrencyFormat(CurrencyPattern(name))); return true;
    case LOCALE_INEGCURR: SetNumber(value, NegativeCurrencyFormat(CurrencyPattern(name))); return true;
    default: return false;
    }
}

std::u16string ShortDatePicture(const std::string &name)
{
    return WindowsPictureFromIcu(DateTimePattern(name, UDAT_NONE, UDAT_SHORT));
}

std::u16string LongDatePicture(const std::string &name)
{
    return WindowsPictureFromIcu(DateTimePattern(name, UDAT_NONE, UDAT_FULL));
}

std::u16string TimePicture(const std::string &name)
{
    return WindowsPictureFromIcu(DateTimePattern(name, UDAT_MEDIUM, UDAT_NONE));
}

bool QueryDateTimeFormat(const LocaleIdentity &locale, LCTYPE type, LocaleValue &value)
{
    const std::string &name = locale.icuName;
    switch (type) {
    case LOCALE_SSHORTDATE: SetText(value, ShortDatePicture(name)); return true;
    case LOCALE_SLONGDATE: SetText(value, LongDatePicture(name)); return true;
    case LOCALE_STIMEFORMAT: SetText(value, TimePicture(name)); return true;
    case LOCALE_SDATE: SetText(value, DateSeparator(TokenizePicture(ShortDatePicture(name)))); return true;
    case LOCALE_STIME: SetText(value, TimeSeparator(TokenizePicture(TimePicture(name)))); return true;
    case LOCALE_IDATE: SetNumber(value, (DWORD)DateOrder(TokenizePicture(ShortDatePicture(name)))); return true;
    case LOCALE_ILDATE: SetNumber(value, (DWORD)DateOrder(TokenizePicture(LongDatePicture(name)))); return true;
    case LOCALE_ICENTURY:
        SetNumber(value, FieldWidth(TokenizePicture(ShortDatePicture(name)), u'y') >= 4 ? 1 : 0);
        return true;
    case LOCALE_IDAYLZERO:
        SetNumber(value, FieldWidth(TokenizePicture(ShortDatePicture(name)), u'd') == 2 ? 1 : 0);
        return true;
    case LOCALE_IMONLZERO:
        SetNumber(value, FieldWidth(TokenizePicture(ShortDatePicture(name)), u'M') == 2 ? 1 : 0);
        return true;
    default: return false;
    }
}

int HourWidth(const std::vector<PictureToken> &tokens)
{
    int width = FieldWidth(tokens, u'H');
    return width ? width : FieldWidth(tokens, u'h');
}

bool QueryTimeFacts(const LocaleIdentity &locale, LCTYPE type, LocaleValue &value)
{
    const std::string &name = locale.icuName;
    switch (type) {
    case LOCALE_ITIME: SetNumber(value, HasField(TokenizePicture(TimePicture(name)), u'H') ? 1 : 0); return true;
    case LOCALE_ITIMEMARKPOSN:
        SetNumber(value, MarkerPrecedesHour(TokenizePicture(TimePicture(name))) ? 1 : 0);
        return true;
    case LOCALE_ITLZERO: SetNumber(value, HourWidth(TokenizePicture(TimePicture(name))) == 2 ? 1 : 0); return true;
    case LOCALE_S1159: SetText(value, DateSymbol(name, UDAT_AM_PMS, 0)); return true;
    case LOCALE_S2359: SetText(value, DateSymbol(name, UDAT_AM_PMS, 1)); return true;
    default: return false;
    }
}

// Windows numbers weekdays from Monday (0) where ICU starts at Sunday (1);
// Windows' SDAYNAME1 is Monday.
int IcuWeekdayForWindowsIndex(int index)
{
    return index == 6 ? 1 : index + 2;
}

bool QueryCalendar(const LocaleIdentity &locale, LCTYPE type, LocaleValue &value)
{
    const std::string &name = locale.icuName;
    if (type >= LOCALE_SDAYNAME1 && type <= LOCALE_SDAYNAME7) {
        int weekday = IcuWeekdayForWindowsIndex((int)(type - LOCALE_SDAYNAME1));
        SetText(value, DateSymbol(name, UDAT_STANDALONE_WEEKDAYS, weekday));
        return true;
    }
    if (type >= LOCALE_SABBREVDAYNAME1 && type <= LOCALE_SABBREVDAYNAME7) {
        int weekday = IcuWeekdayForWindowsIndex((int)(type - LOCALE_SABBREVDAYNAME1));
        SetText(value, DateSymbol(name, UDAT_STANDALONE_SHORT_WEEKDAYS, weekday));
        return true;
    }
    if (type >= LOCALE_SMONTHNAME1 && type <= LOCALE_SMONTHNAME12) {
        SetText(value, DateSymbol(name, UDAT_STANDALONE_MONTHS, (int)(type - LOCALE_SMONTHNAME1)));
        return true;
    }
    if (type >= LOCALE_SABBREVMONTHNAME1 && type <= LOCALE_SABBREVMONTHNAME12) {
        SetText(value, DateSymbol(name, UDAT_STANDALONE_SHORT_MONTHS, (int)(type - LOCALE_SABBREVMONTHNAME1)));
        return true;
    }
    switch (type) {
    case LOCALE_ICALENDARTYPE: SetNumber(value, 1); return true; // Gregorian
    case LOCALE_IFIRSTDAYOFWEEK: SetNumber(value, (DWORD)((FirstDayOfWeek(name) + 5) % 7)); return true;
    case LOCALE_IFIRSTWEEKOFYEAR: {
        int minimalDays = MinimalDaysInFirstWeek(name);
        SetNumber(value, minimalDays >= 7 ? 1 : minimalDays >= 4 ? 2 : 0);
        return true;
    }
    default: return false;
    }
}

} // namespace

bool QueryLocaleValue(const LocaleIdentity &locale, LCTYPE type, LocaleValue &value)
{
    return QueryName(locale, type, value) || QueryCode(locale, type, value) ||
           QueryNumberFormat(locale, type, value) || QueryCurrencyFormat(locale, type, value) ||
           QueryDateTimeFormat(locale, type, value) || QueryTimeFacts(locale, type, value) ||
           QueryCalendar(locale, type, value);
}

} // namespace brano
