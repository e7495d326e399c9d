// Thin wrappers over ICU's locale, number, date and calendar services that
// hide buffer sizing and error codes: on failure they give empty strings or
// the common default.
#include "icu_locale_data.h"

#include <unicode/ucal.h>
#include <unicode/uloc.h>
#include <unicode/ulocdata.h>

#include <memory>

namespace brano {

namespace {

constexpr int32_t kInitialCapacity = 128;

// Calls an ICU "fill this buffer" function, growing the buffer once when
// the first one was too small.
template <typename Fill>
std::u16string ReadIcuText(Fill fill)
{
    std::u16string text(kInitialCapacity, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = fill(&text[0], kInitialCapacity, &status);
    if (status == U_BUFFER_OVERFLOW_ERROR && length > 0) {
        text.assign((size_t)length, u'\0');
        status = U_ZERO_ERROR;
        length = fill(&text[0], length, &status);
    }
    if (U_FAILURE(status) || length < 0)
        return std::u16string();
    text.resize((size_t)length);
    return text;
}

std::string ReadLocalePart(int32_t (*getter)(const char *, char *, int32_t, UErrorCode *), const std::string &locale)
{
    char buffer[ULOC_FULLNAME_CAPACITY];
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = getter(locale.c_str(), buffer, sizeof buffer, &status);
    if (U_FAILURE(status) || length <= 0 || length >= (int32_t)sizeof buffer)
        return std::string();
    return std::string(buffer, (size_t)length);
}

struct NumberFormatCloser {
    void operator()(UNumberFormat *format) const { unum_close(format); }
};
using NumberFormatPtr = std::unique_ptr<UNumberFormat, NumberFormatCloser>;

NumberFormatPtr OpenNumberFormat(const std::string &locale, UNumberFormatStyle style)
{
    UErrorCode status = U_ZERO_ERROR;
    NumberFormatPtr format(unum_open(style, nullptr, 0, locale.c_str(), nullptr, &status));
    if (U_FAILURE(status))
        format.reset();
    return format;
}

bool IsCurrencySymbol(UNumberFormatSymbol symbol)
{
    return symbol == UNUM_CURRENCY_SYMBOL || symbol == UNUM_INTL_CURRENCY_SYMBOL ||
           symbol == UNUM_MONETARY_SEPARATOR_SYMBOL || symbol == UNUM_MONETARY_GROUPING_SEPARATOR_SYMBOL;
}

struct CalendarCloser {
    void operator()(UCalendar *calendar) const { ucal_close(calendar); }
};

int CalendarAttribute(const std::string &locale, UCalendarAttribute attribute, int fallback)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UCalendar, CalendarCloser> calendar(
        ucal_open(nullptr, 0, locale.c_str(), UCAL_GREGORIAN, &status));
    if (U_FAILURE(status) || !calendar)
        return fallback;
    return ucal_getAttribute(calendar.get(), attribute);
}

struct DateFormatCloser {
    void operator()(UDateFormat *format) const { udat_close(format); }
};
using DateFormatPtr = std::unique_ptr<UDateFormat, DateFormatCloser>;

DateFormatPtr OpenDateFormat(const std::string &locale, UDateFormatStyle timeStyle, UDateFormatStyle dateStyle)
{
    UErrorCode status = U_ZERO_ERROR;
    DateFormatPtr format(udat_open(timeStyle, dateStyle, locale.c_str(), nullptr, 0, nullptr, 0, &status));
    if (U_FAILURE(status))
        format.reset();
    return format;
}

} // namespace

std::u16string DisplayLanguage(const std::string &locale, const std::string &inLocale)
{
    return ReadIcuText([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return uloc_getDisplayLanguage(locale.c_str(), inLocale.c_str(), buffer, capacity, status);
    });
}

std::u16string DisplayCountry(const std::string &locale, const std::string &inLocale)
{
    return ReadIcuText([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return uloc_getDisplayCountry(locale.c_str(), inLocale.c_str(), buffer, capacity, status);
    });
}

std::u16string DisplayName(const std::string &locale, const std::string &inLocale)
{
    return ReadIcuText([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return uloc_getDisplayName(locale.c_str(), inLocale.c_str(), buffer, capacity, status);
    });
}

std::string LanguageCode(const std::string &locale)
{
    return ReadLocalePart(uloc_getLanguage, locale);
}

std::string RegionCode(const std::string &locale)
{
    return ReadLocalePart(uloc_getCountry, locale);
}

std::string Iso3LanguageCode(const std::string &locale)
{
    const char *code = uloc_getISO3Language(locale.c_str());
    return code ? code : "";
}

std::string Iso3RegionCode(const std::string &locale)
{
    const char *code = uloc_getISO3Country(locale.c_str());
    return code ? code : "";
}

std::u16string NumberSymbol(const std::string &locale, UNumberFormatSymbol symbol)
{
    NumberFormatPtr format = OpenNumberFormat(locale, IsCurrencySymbol(symbol) ? UNUM_CURRENCY : UNUM_DECIMAL);
    if (!format)
        return std::u16string();
    return ReadIcuText([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return unum_getSymbol(format.get(), symbol, buffer, capacity, status);
    });
}

std::u16string NativeDigits(const std::string &locale)
{
    static const UNumberFormatSymbol kDigits[10] = {
        UNUM_ZERO_DIGIT_SYMBOL,  UNUM_ONE_DIGIT_SYMBOL,   UNUM_TWO_DIGIT_SYMBOL, UNUM_THREE_DIGIT_SYMBOL,
        UNUM_FOUR_DIGIT_SYMBOL,  UNUM_FIVE_DIGIT_SYMBOL,  UNUM_SIX_DIGIT_SYMBOL, UNUM_SEVEN_DIGIT_SYMBOL,
        UNUM_EIGHT_DIGIT_SYMBOL, UNUM_NINE_DIGIT_SYMBOL,
    };
    std::u16string digits;
    for (UNumberFormatSymbol symbol : kDigits)
        digits += NumberSymbol(locale, symbol);
    return digits.empty() ? u"0123456789" : digits;
}

GroupingSizes NumberGrouping(const std::string &locale, bool currency)
{
    GroupingSizes sizes;
    NumberFormatPtr format = OpenNumberFormat(locale, currency ? UNUM_CURRENCY : UNUM_DECIMAL);
    if (!format)
        return sizes;
    sizes.primary = unum_getAttribute(format.get(), UNUM_GROUPING_SIZE);
    int secondary = unum_getAttribute(format.get(), UNUM_SECONDARY_GROUPING_SIZE);
    sizes.secondary = secondary > 0 && secondary != sizes.primary ? secondary : 0;
    return sizes;
}

int CurrencyFractionDigits(const std::string &locale)
{
    NumberFormatPtr format = OpenNumberFormat(locale, UNUM_CURRENCY);
    return format ? unum_getAttribute(format.get(), UNUM_FRACTION_DIGITS) : 2;
}

std::u16string CurrencyPattern(const std::string &locale)
{
    NumberFormatPtr format = OpenNumberFormat(locale, UNUM_CURRENCY);
    if (!format)
        return u"\u00A4#,##0.00";
    return ReadIcuText([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return unum_toPattern(format.get(), false, buffer, capacity, status);
    });
}

std::u16string DateTimePattern(const std::string &locale, UDateFormatStyle timeStyle, UDateFormatStyle dateStyle)
{
    DateFormatPtr format = OpenDateFormat(locale, timeStyle, dateStyle);
    if (!format)
        return std::u16string();
    return ReadIcuText([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return udat_toPattern(format.get(), false, buffer, capacity, status);
    });
}

std::u16string DateSymbol(const std::string &locale, UDateFormatSymbolType type, int index)
{
    DateFormatPtr format = OpenDateFormat(locale, UDAT_NONE, UDAT_SHORT);
    if (!format)
        return std::u16string();
    return ReadIcuText([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return udat_getSymbols(format.get(), type, index, buffer, capacity, status);
    });
}

int FirstDayOfWeek(const std::string &locale)
{
    return CalendarAttribute(locale, UCAL_FIRST_DAY_OF_WEEK, 1);
}

int MinimalDaysInFirstWeek(const std::string &locale)
{
    return CalendarAttribute(locale, UCAL_MINIMAL_DAYS_IN_FIRST_WEEK, 1);
}

bool UsesUsMeasurement(const std::string &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    UMeasurementSystem system = ulocdata_getMeasurementSystem(locale.c_str(), &status);
    return U_SUCCESS(status) && system == UMS_US;
}

} // namespace brano
