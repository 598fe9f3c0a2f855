// CString's printf formatting: the MSVC runtime's spelling of conversions
// turned into the C runtime's, measuring, and the Format entry points.
#include "afxstr.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

namespace {

using AfxFormat::Size;
using AfxFormat::Spec;

// A conversion's length modifier and letter as the C runtime spells them.
struct Spelling
{
    std::string_view modifier;
    char conversion;
};

#ifndef _WIN32
bool IsIntegerConversion(char conversion)
{
    return conversion != '\0' && std::strchr("diouxX", conversion) != nullptr;
}
#endif

// The MSVC meaning of a conversion in the C runtime's spelling: I64 is ll,
// I32 nothing, I pointer sized, w and the wide letters S and C the l forms,
// h before s or c a narrow string or character.
Spelling StandardSpelling(const char* format, const Spec& spec)
{
    Spelling out{{format + spec.modifier, spec.modifierLength}, spec.conversion};
    switch (spec.size) {
    case Size::I64:
        out.modifier = "ll";
        break;
    case Size::I32:
        out.modifier = "";
        break;
    case Size::I:
        out.modifier = "z";
        break;
    case Size::w:
        out.modifier = "l";
        break;
    default:
        break;
    }
    if (spec.conversion == 'S' || spec.conversion == 'C') {
        out.conversion = spec.conversion == 'S' ? 's' : 'c';
        out.modifier = spec.size == Size::h ? "" : "l";
    } else if ((spec.conversion == 's' || spec.conversion == 'c') && spec.size == Size::h) {
        out.modifier = "";
    }
#ifndef _WIN32
    // long is 32 bits on Windows: the native build reads "l" integers as int.
    if (spec.size == Size::l && IsIntegerConversion(spec.conversion))
        out.modifier = "";
#endif
    return out;
}

bool SpelledAlike(const char* format, const Spec& spec, const Spelling& spelling)
{
    return spelling.conversion == spec.conversion &&
           spelling.modifier == std::string_view(format + spec.modifier, spec.modifierLength);
}

// A format in the C runtime's spelling. Formats that need no change are
// used as they are.
class StandardFormat
{
public:
    explicit StandardFormat(const char* format) : m_text(format)
    {
        std::size_t pos = 0;
        std::size_t copied = 0;
        Spec spec;
        while (AfxFormat::NextSpec(format, pos, spec)) {
            if (spec.conversion == '\0')
                break;
            const Spelling spelling = StandardSpelling(format, spec);
            if (SpelledAlike(format, spec, spelling))
                continue;
            m_rewritten.append(format + copied, spec.modifier - copied);
            m_rewritten.append(spelling.modifier);
            m_rewritten += spelling.conversion;
            copied = spec.end;
        }
        if (copied > 0) {
            m_rewritten.append(format + copied);
            m_text = m_rewritten.c_str();
        }
    }
    const char* get() const { return m_text; }

private:
    const char* m_text;
    std::string m_rewritten;
};

// The characters a format produces, or -1 if the C runtime cannot convert.
int MeasureFormatted(const char* format, va_list args)
{
    va_list copy;
    va_copy(copy, args);
    const int length = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    return length;
}

}  // namespace

void CString::FormatV(const char* pszFormat, va_list args)
{
    if (pszFormat == nullptr) {
        Empty();
        return;
    }
    const StandardFormat format(pszFormat);
    const int length = MeasureFormatted(format.get(), args);
    if (length <= 0) {
        Empty();
        return;
    }
    PutFormatted(0, length, format.get(), args);
}

void CString::AppendFormatV(const char* pszFormat, va_list args)
{
    if (pszFormat == nullptr)
        return;
    const StandardFormat format(pszFormat);
    const int length = MeasureFormatted(format.get(), args);
    if (length > 0)
        PutFormatted(GetLength(), length, format.get(), args);
}

void CString::FormatUnchecked(const char* pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    FormatV(pszFormat, args);
    va_end(args);
}

void CString::AppendFormatUnchecked(const char* pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    AppendFormatV(pszFormat, args);
    va_end(args);
}
