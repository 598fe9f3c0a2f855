// Text forms of settings values: hex bytes and truth words.
#include "settings.h"
#include "settings_access.h"
#include "truth_word_table.h"

#include <cstdlib>
#include <cstring>

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

}  // namespace

CString BinaryToStr(const BYTE* bytes, int count)
{
    CString text;
    if (!bytes || count <= 0)
        return text;
    char* out = text.GetBuffer(count * 3);
    for (int i = 0; i < count; ++i) {
        out[i * 3] = kSettingsHexDigits[bytes[i] >> 4];
        out[i * 3 + 1] = kSettingsHexDigits[bytes[i] & 15];
        out[i * 3 + 2] = ' ';
    }
    text.ReleaseBuffer(count * 3 - 1);
    return text;
}

CString BinaryToStr(const void* block)
{
    if (!block)
        return CString();
    DWORD length;
    std::memcpy(&length, block, sizeof length);
    if (length > 0x7FFFFFFF / 3)
        return CString();
    return BinaryToStr(static_cast<const BYTE*>(block) + sizeof(DWORD), int(length));
}

int StrToBinary(const char* text, unsigned char*& bytes)
{
    bytes = nullptr;
    if (!text)
        return 0;
    const size_t length = std::strlen(text);
    unsigned char* out = static_cast<unsigned char*>(std::malloc(length / 2 + 1));
    if (!out)
        return 0;
    size_t count = 0;
    size_t i = 0;
    for (;;) {
        while (i < length && IsBlank(text[i]))
            ++i;
        if (i == length)
            break;
        const int hi = SettingsHexValue(text[i]);
        const int lo = i + 1 < length ? SettingsHexValue(text[i + 1]) : -1;
        if (hi < 0 || lo < 0 || count >= 0x7FFFFFFF) {
            std::free(out);
            return 0;
        }
        out[count++] = static_cast<unsigned char>(hi * 16 + lo);
        i += 2;
    }
    if (!count) {
        std::free(out);
        return 0;
    }
    bytes = out;
    return int(count);
}

int IsStringValueTrue(const char* text)
{
    if (!text)
        return 0;
    size_t begin = 0;
    size_t end = std::strlen(text);
    while (begin < end && IsBlank(text[begin]))
        ++begin;
    while (end > begin && IsBlank(text[end - 1]))
        --end;
    for (std::string_view word : twutil::kTruthWords) {
        const size_t n = word.size();
        if (n != end - begin)
            continue;
        size_t k = 0;
        while (k < n && AfxToLower1252(text[begin + k]) == word[k])
            ++k;
        if (k == n)
            return 1;
    }
    return 0;
}
