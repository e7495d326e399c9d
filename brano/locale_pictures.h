// Win32 date and time pictures ("M/d/yyyy", "h:mm:ss tt") made from ICU
// patterns, and the facts Windows reports about them (order, separators,
// leading zeros).
#ifndef BRANO_LOCALE_PICTURES_H
#define BRANO_LOCALE_PICTURES_H

#include <string>
#include <vector>

namespace brano {

// One piece of a picture: a field (a letter repeated `count` times) or, with
// letter 0, literal text.
struct PictureToken {
    char16_t letter = 0;
    int count = 0;
    std::u16string literal;
};

std::u16string WindowsPictureFromIcu(const std::u16string &icuPattern);
std::vector<PictureToken> TokenizePicture(const std::u16string &picture);

// The literal between the first date field and the next one ("/").
std::u16string DateSeparator(const std::vector<PictureToken> &tokens);
// The literal between the hour and the next field (":").
std::u16string TimeSeparator(const std::vector<PictureToken> &tokens);
// 0 month-day-year, 1 day-month-year, 2 year-month-day.
int DateOrder(const std::vector<PictureToken> &tokens);
// The repeat count of a numeric field (day numbers only, not day names);
// 0 when absent.
int FieldWidth(const std::vector<PictureToken> &tokens, char16_t letter);
bool HasField(const std::vector<PictureToken> &tokens, char16_t letter);
// Whether the AM/PM marker comes before the hour.
bool MarkerPrecedesHour(const std::vector<PictureToken> &tokens);

} // namespace brano

#endif
