// Date texts to sortable integers (ConvertDate).
#include "string_helpers.h"

namespace {

constexpr int kFirstYear = 1900;
constexpr int kLastYear = 4999;
constexpr int kMinutesPerDay = 24 * 60;

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}
bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Reads a run of minDigits..maxDigits digits; false when the run is shorter
// or longer.
bool ReadNumber(const char*& p, int minDigits, int maxDigits, int& value, int* digits = nullptr)
{
    int n = 0;
    int v = 0;
    while (IsDigit(p[n])) {
        if (n == maxDigits)
            return false;
        v = v * 10 + (p[n] - '0');
        ++n;
    }
    if (n < minDigits)
        return false;
    p += n;
    value = v;
    if (digits != nullptr)
        *digits = n;
    return true;
}

bool ReadChar(const char*& p, char c)
{
    if (*p != c)
        return false;
    ++p;
    return true;
}

bool IsLeapYear(int y)
{
    return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}

int DaysInMonth(int y, int m)
{
    static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && IsLeapYear(y) ? 29 : kDays[m - 1];
}

// Days from 1 January 1900 to the given day of the proleptic Gregorian calendar.
int DaysSince1900(int y, int m, int d)
{
    auto daysFromCivil = [](int yy, int mm, int dd) {
        yy -= mm <= 2;
        const int era = yy / 400;
        const int yoe = yy - era * 400;
        const int doy = (153 * (mm + (mm > 2 ? -3 : 9)) + 2) / 5 + dd - 1;
        const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
        return era * 146097 + doe;
    };
    return daysFromCivil(y, m, d) - daysFromCivil(kFirstYear, 1, 1);
}

bool ReadDate(const char*& p, int& y, int& m, int& d, bool& iso)
{
    int first = 0;
    int digits = 0;
    if (!ReadNumber(p, 1, 4, first, &digits))
        return false;
    if (digits == 4 && (*p == '-' || *p == ':')) {
        const char sep = *p++;
        iso = sep == '-';
        y = first;
        return ReadNumber(p, 1, 2, m) && ReadChar(p, sep) && ReadNumber(p, 1, 2, d);
    }
    if (digits > 2 || !ReadChar(p, '.'))
        return false;
    d = first;
    if (!ReadNumber(p, 1, 2, m) || !ReadChar(p, '.'))
        return false;
    int yearDigits = 0;
    if (!ReadNumber(p, 2, 4, y, &yearDigits) || yearDigits == 3)
        return false;
    if (yearDigits == 2)
        y += y < 30 ? 2000 : 1900;
    iso = false;
    return true;
}

bool ReadTime(const char*& p, int& h, int& min)
{
    int s = 0;
    if (!ReadNumber(p, 1, 2, h) || !ReadChar(p, ':') || !ReadNumber(p, 2, 2, min))
        return false;
    if (*p == ':' && !(ReadChar(p, ':') && ReadNumber(p, 2, 2, s)))
        return false;
    return h <= 23 && min <= 59 && s <= 59;
}

}  // namespace

int ConvertDate(const char* text)
{
    if (text == nullptr)
        return TW_NO_DATE;
    const char* p = text;
    while (IsBlank(*p))
        ++p;
    int y = 0;
    int m = 0;
    int d = 0;
    bool iso = false;
    if (!ReadDate(p, y, m, d, iso))
        return TW_NO_DATE;
    if (y < kFirstYear || y > kLastYear || m < 1 || m > 12 || d < 1 || d > DaysInMonth(y, m))
        return TW_NO_DATE;

    int h = 0;
    int min = 0;
    const char* afterDate = p;
    while (IsBlank(*p))
        ++p;
    if (*p != '\0') {
        const bool separated = p != afterDate || (iso && ReadChar(p, 'T'));
        if (!separated || !ReadTime(p, h, min))
            return TW_NO_DATE;
        while (IsBlank(*p))
            ++p;
        if (*p != '\0')
            return TW_NO_DATE;
    }
    return DaysSince1900(y, m, d) * kMinutesPerDay + h * 60 + min;
}
