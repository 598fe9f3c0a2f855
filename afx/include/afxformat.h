// printf formats of CString::Format, AppendFormat and TRACE: one parser of
// conversion specifications, used at compile time to check a literal format
// against its arguments and at run time to turn the MSVC runtime's length
// modifiers into the C runtime's.
//
// Conversions mean what they mean in the MSVC runtime: "l" is 32 bits (long
// is 32 bits on Windows), "I64" and "ll" are 64 bits, "I" is pointer sized,
// "I32" is 32 bits, "%S" and "%ws" print a wide string, "%hs" a narrow one.
//
// AfxFormatString<Args...> is the format parameter of those functions. Built
// from a string literal (or a constexpr char array), its constructor runs at
// compile time and rejects, as a compile error:
// - a conversion whose argument does not fit it (%s with an int, %d with a
//   double or a 64-bit integer, %I64d with an int, a class object other than
//   CString anywhere),
// - fewer or more arguments than the format uses ('*' widths count),
// - %n, positional arguments (%1$d) and unknown conversions.
// Built from anything else (a CString, a char* or const char* variable, a
// char[] buffer, nullptr) it takes the format unchecked. A const char array
// that is not constexpr cannot be read at compile time: declare it
// constexpr, or pass it as a pointer.
//
// The error names the rule in the called function's name, e.g.
// "call to non-'constexpr' function 'void AfxFormat::argument_does_not_fit_its_conversion()'".
#pragma once

#include "afxplatform.h"

#include <cstddef>
#include <type_traits>

class CString;

namespace AfxFormat {

// Length modifiers, as the MSVC runtime reads them.
enum class Size : unsigned char
{
    none,
    hh,
    h,
    l,
    ll,
    L,
    I,
    I32,
    I64,
    j,
    z,
    t,
    w,
};

// One conversion specification of a format: text[begin] is its '%',
// text[modifier, modifier + modifierLength) its length modifier and
// text[end - 1] its conversion character.
struct Spec
{
    std::size_t begin = 0;
    std::size_t modifier = 0;
    std::size_t modifierLength = 0;
    std::size_t end = 0;
    Size size = Size::none;
    // '\0' when the format ends inside the specification.
    char conversion = '\0';
    bool starWidth = false;
    bool starPrecision = false;
    bool positional = false;
};

constexpr bool IsDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

// Reads the length modifier at text[pos]; returns its length (0 for none).
constexpr std::size_t ReadSize(const char* text, std::size_t pos, Size& size)
{
    const char a = text[pos];
    const char b = a != '\0' ? text[pos + 1] : '\0';
    const char c = b != '\0' ? text[pos + 2] : '\0';
    switch (a) {
    case 'h':
        size = b == 'h' ? Size::hh : Size::h;
        return b == 'h' ? 2 : 1;
    case 'l':
        size = b == 'l' ? Size::ll : Size::l;
        return b == 'l' ? 2 : 1;
    case 'I':
        if (b == '6' && c == '4') {
            size = Size::I64;
            return 3;
        }
        if (b == '3' && c == '2') {
            size = Size::I32;
            return 3;
        }
        size = Size::I;
        return 1;
    case 'L':
        size = Size::L;
        return 1;
    case 'j':
        size = Size::j;
        return 1;
    case 'z':
        size = Size::z;
        return 1;
    case 't':
        size = Size::t;
        return 1;
    case 'w':
        size = Size::w;
        return 1;
    default:
        size = Size::none;
        return 0;
    }
}

// Finds the next conversion at or after pos, skipping "%%"; false when the
// format has none left. Sets pos past the conversion.
constexpr bool NextSpec(const char* text, std::size_t& pos, Spec& spec)
{
    for (;;) {
        while (text[pos] != '\0' && text[pos] != '%')
            ++pos;
        if (text[pos] == '\0')
            return false;
        if (text[pos + 1] == '%') {
            pos += 2;
            continue;
        }
        break;
    }
    spec = Spec{};
    spec.begin = pos++;
    // Flags, width and precision; a digit run followed by '$' is a position.
    std::size_t digits = pos;
    while (IsDigit(text[digits]))
        ++digits;
    if (digits > pos && text[digits] == '$') {
        spec.positional = true;
        pos = digits + 1;
    }
    while (text[pos] == '-' || text[pos] == '+' || text[pos] == ' ' || text[pos] == '#' || text[pos] == '0' ||
           text[pos] == '\'')
        ++pos;
    if (text[pos] == '*') {
        spec.starWidth = true;
        ++pos;
    }
    while (IsDigit(text[pos]))
        ++pos;
    if (text[pos] == '.') {
        ++pos;
        if (text[pos] == '*') {
            spec.starPrecision = true;
            ++pos;
        }
        while (IsDigit(text[pos]))
            ++pos;
    }
    spec.modifier = pos;
    spec.modifierLength = ReadSize(text, pos, spec.size);
    pos += spec.modifierLength;
    spec.conversion = text[pos];
    if (text[pos] != '\0')
        ++pos;
    spec.end = pos;
    return true;
}

// What an argument is to a conversion; a conversion accepts a set of them.
enum Kind : unsigned
{
    kInvalid = 0,
    kInt32 = 1u << 0,
    kInt64 = 1u << 1,
    kDouble = 1u << 2,
    kLongDouble = 1u << 3,
    kString = 1u << 4,
    kWideString = 1u << 5,
    kPointer = 1u << 6,
    kNull = 1u << 7,
};

constexpr unsigned kIntOfPointerSize = sizeof(void*) == 8 ? kInt64 : kInt32;

// The kinds of argument a conversion takes; kInvalid for a conversion that
// is never allowed (%n, unknown letters, impossible modifiers).
constexpr unsigned Accepted(const Spec& spec)
{
    const Size size = spec.size;
    switch (spec.conversion) {
    case 'd':
    case 'i':
    case 'o':
    case 'u':
    case 'x':
    case 'X':
        switch (size) {
        case Size::none:
        case Size::hh:
        case Size::h:
        case Size::l:
        case Size::I32:
            return kInt32;
        case Size::ll:
        case Size::I64:
        case Size::j:
            return kInt64;
        case Size::I:
        case Size::z:
        case Size::t:
            return kIntOfPointerSize;
        default:
            return kInvalid;
        }
    case 'c':
    case 'C':
        return size == Size::none || size == Size::h || size == Size::l || size == Size::w ? kInt32 : kInvalid;
    case 's':
        if (size == Size::none || size == Size::h)
            return kString | kNull;
        return size == Size::l || size == Size::w ? kWideString | kNull : kInvalid;
    case 'S':
        if (size == Size::h)
            return kString | kNull;
        return size == Size::none || size == Size::l || size == Size::w ? kWideString | kNull : kInvalid;
    case 'e':
    case 'E':
    case 'f':
    case 'F':
    case 'g':
    case 'G':
    case 'a':
    case 'A':
        if (size == Size::none || size == Size::l)
            return kDouble;
        return size == Size::L ? kLongDouble : kInvalid;
    case 'p':
        return size == Size::none ? kPointer | kString | kWideString | kNull : kInvalid;
    default:
        return kInvalid;
    }
}

template <class T>
inline constexpr bool kIsCharPointer = std::is_same_v<T, char*> || std::is_same_v<T, const char*> ||
                                       std::is_same_v<T, signed char*> || std::is_same_v<T, const signed char*> ||
                                       std::is_same_v<T, unsigned char*> || std::is_same_v<T, const unsigned char*>;

// The kind of an argument of type T (references and arrays decayed); a
// CString, and any class derived from it, passes its text pointer.
template <class T>
constexpr unsigned KindOf()
{
    using D = std::remove_cv_t<std::decay_t<T>>;
    if constexpr (std::is_base_of_v<CString, D> || kIsCharPointer<D>)
        return kString;
    else if constexpr (std::is_same_v<D, wchar_t*> || std::is_same_v<D, const wchar_t*>)
        return kWideString;
    else if constexpr (std::is_same_v<D, std::nullptr_t>)
        return kNull;
    else if constexpr (std::is_pointer_v<D>)
        return kPointer;
    else if constexpr (std::is_integral_v<D> || std::is_enum_v<D>)
        return sizeof(D) <= 4 ? kInt32 : sizeof(D) == 8 ? kInt64 : kInvalid;
    else if constexpr (std::is_same_v<D, float> || std::is_same_v<D, double>)
        return kDouble;
    else if constexpr (std::is_same_v<D, long double>)
        return kLongDouble;
    else
        return kInvalid;
}

// Whether an argument of type T can go through "..." to a C formatting
// function at all (after a CString has become its text pointer).
template <class T>
inline constexpr bool kPassable = KindOf<T>() != kInvalid;

// The rules a checked format breaks. They are never defined: calling one
// from the compile-time check makes it fail with the rule's name.
void argument_does_not_fit_its_conversion();
void format_has_more_conversions_than_arguments();
void format_has_fewer_conversions_than_arguments();
void format_has_an_unknown_conversion_or_modifier();
void n_conversion_is_not_allowed();
void positional_arguments_are_not_supported();
void format_ends_inside_a_conversion();

// Checks a format against argument kinds; only ever evaluated at compile time.
consteval void Check(const char* text, const unsigned* kinds, std::size_t count)
{
    std::size_t pos = 0;
    std::size_t arg = 0;
    Spec spec;
    auto take = [&](unsigned accepted) {
        if (arg >= count)
            format_has_more_conversions_than_arguments();
        if ((kinds[arg] & accepted) == 0)
            argument_does_not_fit_its_conversion();
        ++arg;
    };
    while (NextSpec(text, pos, spec)) {
        if (spec.conversion == '\0')
            format_ends_inside_a_conversion();
        if (spec.positional)
            positional_arguments_are_not_supported();
        if (spec.conversion == 'n')
            n_conversion_is_not_allowed();
        const unsigned accepted = Accepted(spec);
        if (accepted == kInvalid)
            format_has_an_unknown_conversion_or_modifier();
        if (spec.starWidth)
            take(kInt32);
        if (spec.starPrecision)
            take(kInt32);
        take(accepted);
    }
    if (arg != count)
        format_has_fewer_conversions_than_arguments();
}

// What a formatting template hands to "...": a CString (or a class derived
// from it) its text, an array its first element's address, everything else
// itself.
template <class T>
constexpr auto Pass(const T& value)
{
    if constexpr (std::is_base_of_v<CString, T>)
        return value.GetString();
    else if constexpr (std::is_array_v<T>)
        return static_cast<const std::remove_extent_t<T>*>(value);
    else
        return value;
}

template <class T>
inline constexpr bool kIsFormatPointer =
    std::is_same_v<T, const char*> || std::is_same_v<T, char*> || std::is_same_v<T, std::nullptr_t>;

}  // namespace AfxFormat

// The format parameter of CString::Format, AppendFormat and AfxTrace for
// arguments of the types Args: checked at compile time when it is a literal.
template <class... Args>
class AfxFormatString
{
public:
    // A literal (or constexpr array): checked against Args.
    template <std::size_t N>
    consteval AfxFormatString(const char (&text)[N]) : m_psz(text)
    {
        constexpr unsigned kinds[sizeof...(Args) + 1] = {AfxFormat::KindOf<Args>()..., 0u};
        AfxFormat::Check(text, kinds, sizeof...(Args));
    }
    // A writable buffer: taken unchecked.
    template <std::size_t N>
    AfxFormatString(char (&text)[N]) : m_psz(text)
    {}
    // A pointer or nullptr: taken unchecked.
    template <class T>
    requires AfxFormat::kIsFormatPointer<T> AfxFormatString(T text) : m_psz(text) {}
    // A CString: taken unchecked (defined in afxstr.h).
    AfxFormatString(const CString& text);

    LPCTSTR get() const { return m_psz; }

private:
    LPCTSTR m_psz;
};
