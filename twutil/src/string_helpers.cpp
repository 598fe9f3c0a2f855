// The portable string helpers: CSV fields, line breaks, tokens, numbers,
// trailing characters, links and path variables.
#include "string_helpers.h"
#include "string_helpers_os.h"

#include <charconv>
#include <clocale>
#include <cstring>
#include <string>
#include <string_view>

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}
bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Where a quote at p[i - 1] would close a field: the separator or the end
// after optional blanks; -1 when something else follows.
int ClosingAt(const char* p, int n, int i, char sep)
{
    while (i < n && p[i] != sep && IsBlank(p[i]))
        ++i;
    return i == n || p[i] == sep ? i : -1;
}

// Reads the quoted field that starts after the opening quote at p[i]; on
// return i is at the separator or the end.
std::string ReadQuotedField(const char* p, int n, int& i, char sep)
{
    std::string field;
    while (i < n) {
        if (p[i] != '"') {
            field += p[i++];
            continue;
        }
        if (i + 1 < n && p[i + 1] == '"') {
            field += '"';
            // Deliberately "" right before the separator is a kept quote plus
            // the closing one: older writers did not double quotes in texts.
            const int close = ClosingAt(p, n, i + 2, sep);
            i = close >= 0 ? close : i + 2;
            if (close >= 0)
                break;
            continue;
        }
        const int close = ClosingAt(p, n, i + 1, sep);
        if (close >= 0) {
            i = close;
            break;
        }
        field += p[i++];
    }
    return field;
}

}  // namespace

int SplitCSVLine(CString line, char sep, CStringArray* out)
{
    if (out == nullptr)
        return -1;
    out->RemoveAll();
    const char* p = line.GetString();
    const int n = line.GetLength();
    if (n == 0)
        return 0;
    int i = 0;
    for (;;) {
        int j = i;
        while (j < n && p[j] != sep && IsBlank(p[j]))
            ++j;
        if (sep != '"' && j < n && p[j] == '"') {
            i = j + 1;
            const std::string field = ReadQuotedField(p, n, i, sep);
            out->Add(CString(field.data(), static_cast<int>(field.size())));
        } else {
            const int start = i;
            while (i < n && p[i] != sep)
                ++i;
            out->Add(CString(p + start, i - start));
        }
        if (i >= n)
            break;
        ++i;
        // Deliberately no empty piece after a final separator: lists written
        // with a separator after every entry must give back just the entries.
        if (i == n)
            break;
    }
    return static_cast<int>(out->GetSize());
}

BOOL FindCRLF(CString& text, int& position, int& length)
{
    const char* p = text.GetString();
    const int n = text.GetLength();
    for (int i = 0; i < n; ++i) {
        int found = 0;
        if (p[i] == '\r')
            found = i + 1 < n && p[i + 1] == '\n' ? 2 : 1;
        else if (p[i] == '\n')
            found = 1;
        else if (p[i] == '\\' && i + 1 < n && p[i + 1] == 'n')
            found = 2;
        if (found != 0) {
            position = i;
            length = found;
            return TRUE;
        }
    }
    position = -1;
    length = 0;
    return FALSE;
}

CString NextToken(const char* text, char separator)
{
    thread_local std::string run;
    thread_local size_t pos = 0;
    if (text != nullptr) {
        run.assign(text);
        pos = 0;
    }
    while (pos < run.size() && run[pos] == separator)
        ++pos;
    if (pos >= run.size())
        return CString();
    size_t end = run.find(separator, pos);
    if (end == std::string::npos)
        end = run.size();
    CString token(run.data() + pos, static_cast<int>(end - pos));
    pos = end < run.size() ? end + 1 : end;
    return token;
}

CString ToString(__int64 value)
{
    char buffer[24];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, static_cast<long long>(value));
    return CString(buffer, static_cast<int>(result.ptr - buffer));
}

CString ReplaceDecimalPoint(CString text)
{
    const char* p = text.GetString();
    const int n = text.GetLength();
    int start = 0;
    while (start < n && IsBlank(p[start]))
        ++start;
    if (start < n && (p[start] == '-' || p[start] == '+'))
        ++start;
    int end = start;
    int dots = 0;
    int commas = 0;
    int lastDot = -1;
    int lastComma = -1;
    while (end < n && (IsDigit(p[end]) || p[end] == '.' || p[end] == ',')) {
        if (p[end] == '.') {
            ++dots;
            lastDot = end;
        } else if (p[end] == ',') {
            ++commas;
            lastComma = end;
        }
        ++end;
    }
    if (dots + commas == 0)
        return text;

    int decimalAt = -1;
    if (dots > 0 && commas > 0)
        decimalAt = lastDot > lastComma ? lastDot : lastComma;
    else if (dots + commas == 1)
        decimalAt = dots == 1 ? lastDot : lastComma;

    const lconv* conv = std::localeconv();
    const char point = conv != nullptr && conv->decimal_point != nullptr && conv->decimal_point[0] != '\0'
                           ? conv->decimal_point[0]
                           : '.';
    std::string number;
    for (int i = start; i < end; ++i) {
        if (i == decimalAt)
            number += point;
        else if (IsDigit(p[i]))
            number += p[i];
    }
    CString result(p, start);
    result.Append(number.data(), static_cast<int>(number.size()));
    result.Append(p + end, n - end);
    return result;
}

CString& EnsureTrailingChar(CString& text, char ch)
{
    const int n = text.GetLength();
    if (n > 0 && text.GetAt(n - 1) != ch)
        text.AppendChar(ch);
    return text;
}

CString& EnsureNoTrailingChar(CString& text, char ch)
{
    int n = text.GetLength();
    while (n > 0 && text.GetAt(n - 1) == ch)
        --n;
    text.Truncate(n);
    return text;
}

BOOL isLink(const CString& text)
{
    static constexpr std::string_view kPrefixes[] = {"http://", "https://", "ftp://", "mailto:", "www."};
    const char* p = text.GetString();
    int n = text.GetLength();
    while (n > 0 && IsBlank(*p)) {
        ++p;
        --n;
    }
    while (n > 0 && IsBlank(p[n - 1]))
        --n;
    for (const std::string_view prefix : kPrefixes) {
        const int length = static_cast<int>(prefix.size());
        if (n <= length)
            continue;
        bool same = true;
        for (int i = 0; i < length && same; ++i)
            same = AfxToLower1252(p[i]) == prefix[i];
        if (same)
            return TRUE;
    }
    return FALSE;
}

CString ReplacePathVariables(const CString& path, PATH_VARIABLE_LOOKUP lookup, void* context)
{
    const char* p = path.GetString();
    const int n = path.GetLength();
    CString result;
    int i = 0;
    while (i < n) {
        if (p[i] != '%') {
            const char* next = static_cast<const char*>(std::memchr(p + i, '%', n - i));
            const int stop = next != nullptr ? static_cast<int>(next - p) : n;
            result.Append(p + i, stop - i);
            i = stop;
            continue;
        }
        const char* close = static_cast<const char*>(std::memchr(p + i + 1, '%', n - i - 1));
        if (close == nullptr) {
            result.Append(p + i, n - i);
            break;
        }
        const int closeAt = static_cast<int>(close - p);
        const CString name(p + i + 1, closeAt - i - 1);
        CString value;
        if (lookup != nullptr && !name.IsEmpty() && name.FindOneOf("\\/") < 0 && name.Find('\0') < 0 &&
            lookup(name, value, context)) {
            result += value;
            i = closeAt + 1;
        } else {
            // Deliberately resumes at the closing '%': it may open the next name.
            result.AppendChar('%');
            result.Append(p + i + 1, closeAt - i - 1);
            i = closeAt;
        }
    }
    return result;
}

BOOL LookupSystemPathVariable(const char* name, CString& value, void* context)
{
    const CString key(name);
    if (key.CompareNoCase("ProgDir") == 0) {
        value = ProgramDirectory();
        return !value.IsEmpty();
    }
    if (key.CompareNoCase("DocDir") == 0)
        return ReturnDocDir(value);
    return ReadEnvironmentVariable(key, value);
}

CString ReplacePathVariables(CString path)
{
    return ReplacePathVariables(path, &LookupSystemPathVariable, nullptr);
}
