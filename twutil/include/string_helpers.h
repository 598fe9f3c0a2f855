// Free string helpers of the utility library: ordering, dates, CSV fields,
// line breaks, tokens, numbers, trailing characters, links and path variables.
// All texts are code page 1252 bytes; a null const char* reads as "".
#pragma once

#include "twutil_api.h"
#include "afxstr.h"
#include "afxcoll.h"

// Three-way order of two texts for lists shown to users; negative, zero or
// positive as a sorts before, equal to or after b. Zero only for equal texts.
//
// The rules, each deciding only when all earlier ones see a tie:
// 1. Texts are read as a sequence of elements: each run of ASCII digits is
//    one number, every other byte is one letter. Numbers compare by value
//    (any length, no overflow), so "Bild 9" < "Bild 10"; a number sorts
//    where the digit characters sort (after '/' and before ':'). Letters
//    compare by their base letter: accents are dropped (à, á, â, ã, ä, å to
//    a, ç to c, é to e, ñ to n, ö, ø to o, ü to u, ...) and ß, æ, œ, þ count
//    as ss, ae, oe, th, so "Äpfel" sorts beside "Apfel" and before "Birne".
//    With flag true the case is folded first (AfxToLower1252). A text that
//    is a prefix of the other sorts first.
// 2. At the first number that differs in its count of digits, fewer
//    leading zeros first: "Bild 1" < "Bild 01" < "Bild 001".
// 3. At the first letter that differs: the plain letter before the
//    accented one, comparing the (with flag true case-folded) byte values:
//    "Apfel" < "Äpfel", "ss" < "ß".
// 4. Byte order of the whole texts, bytes unsigned: with flag true this
//    puts upper case first ("Apfel" < "apfel").
// flag false skips the case folding of rule 1 and 3, so "Zebra" < "apfel".
// Signs and decimal separators are not part of numbers ("-5" is '-' and 5).
TWUTIL_API int CompareStringA(const char* a, const char* b, bool flag);

// The value ConvertDate gives for a text that is not a date; every date's
// value is 0 or more, so non-dates sort before all dates.
constexpr int TW_NO_DATE = -1;

// An integer that orders date texts chronologically: the minutes since
// 1 January 1900 00:00. Accepted forms, with blanks or tabs around allowed:
//   T.M.JJJJ, TT.MM.JJJJ, T.M.JJ (day and month one or two digits),
//   JJJJ-MM-TT (ISO) and JJJJ:MM:TT (as EXIF writes dates),
// each optionally followed by blanks (or 'T' after the ISO form) and a time
// H:MM or H:MM:SS (hour one or two digits). Two-digit years 30..99 mean 1930..1999 and 00..29 mean
// 2000..2029. Years 1900 to 4999 are accepted (the values stay below 2^31);
// days are checked against the month, leap years included; seconds are
// checked but do not count, so times in the same minute compare equal.
// Anything else (null, empty, 31.02.2024, trailing text) gives TW_NO_DATE.
TWUTIL_API int ConvertDate(const char* text);

// Splits a line at sep into *out, which is emptied first; returns the number
// of pieces, or -1 with nothing done when out is null.
// - An empty line gives no pieces; a line that ends in the separator gives
//   no empty last piece ("a;b;" gives a and b, "a;;" gives a and "").
// - A field whose first non-blank byte is a double quote is quoted: blanks
//   before the quote are dropped, the separator inside it is kept, and the
//   field is handed back without its quotes. Inside it "" stands for one
//   quote; a quote followed (after optional blanks, which are dropped) by
//   the separator or the end closes the field, and so does a "" there (one
//   kept quote, then the closing one); any other quote is kept as a
//   character. So texts whose quotes were written undoubled ("say "hi"")
//   come back whole. A field that is never closed runs to the end of the line.
// - Unquoted fields are taken exactly as they stand, blanks included, and
//   a quote inside them is an ordinary character.
// - With '"' as the separator nothing is quoted: a plain split.
TWUTIL_API int SplitCSVLine(CString line, char sep, CStringArray* out);

// Finds the first line break in text: CR LF (length 2), a lone LF or a lone
// CR (length 1), or the two characters backslash and n (length 2), the form
// in which captions are stored. Returns TRUE with its position and length;
// FALSE with position -1 and length 0 when there is none. The text is not
// changed.
// Deliberately a backslash followed by n always counts as a break, also in
// a path such as C:\neu: stored captions have no other way to write one.
TWUTIL_API BOOL FindCRLF(CString& text, int& position, int& length);

// Tokeniser in the manner of strtok: a non-null text starts a new run (the
// text is copied, so it need not outlive the calls), null continues it.
// Returns the next token; separators in a row are skipped, so no token is
// empty, and an empty string means the end. Each thread has its own run.
TWUTIL_API CString NextToken(const char* text, char separator);

// The decimal text of a 64-bit value ("-9223372036854775808" .. ).
TWUTIL_API CString ToString(__int64 value);

// The user's decimal separator. Windows: the first character of the user
// locale's LOCALE_SDECIMAL. Native build: the C library's current locale
// (localeconv), which is '.' unless the program set another. '.' when the
// system gives nothing.
TWUTIL_API char DecimalOperatorOS();

// The text with its leading number rewritten so that atof reads it, whether
// it was written with ',' or '.' as the decimal separator. Only the number
// at the start (after blanks and a sign: digits, '.' and ',') is touched:
// - both '.' and ',' in it: the one that comes last is the decimal
//   separator, the other is grouping and is removed ("1.234,5", "1,234.5");
// - one kind, once: it is the decimal separator ("12,5" and "12.5" read 12.5;
//   "1,234" reads 1.234 as a German reader would);
// - one kind, more than once: grouping, removed ("1.234.567").
// The decimal separator becomes the one atof expects in the current C
// locale. Text after the number (units, exponent) stays as it is.
TWUTIL_API CString ReplaceDecimalPoint(CString text);

// Appends ch unless the text already ends with it; returns the text.
// An empty text stays empty, so an unset directory stays "the current
// directory" instead of becoming the root of the drive.
TWUTIL_API CString& EnsureTrailingChar(CString& text, char ch = '\\');

// Removes every ch at the end of the text; returns the text. "C:\" becomes
// "C:", so callers that need a drive root keep the backslash themselves.
TWUTIL_API CString& EnsureNoTrailingChar(CString& text, char ch = '\\');

// Non-zero if the text is an Internet address: it starts, ignoring case and
// leading blanks, with http://, https://, ftp://, mailto: or www. followed
// by at least one further character. file:// and plain paths are no links.
TWUTIL_API BOOL isLink(const CString& text);

// The user's documents folder, without a trailing backslash. Windows: the
// shell's CSIDL_PERSONAL folder; native build: $HOME. Returns non-zero on
// success; on failure dir is emptied and 0 is returned.
TWUTIL_API BOOL ReturnDocDir(CString& dir);

// Answers the value of one path variable; FALSE when the name is unknown.
typedef BOOL (*PATH_VARIABLE_LOOKUP)(const char* name, CString& value, void* context);

// Replaces %Name% in a path by the value lookup gives for Name. A name is the
// non-empty text between two '%' without a backslash or slash. An unknown name
// is left as it stands, with its '%' signs, and the search goes on from its
// closing '%' ("50% of %TEMP%" still expands TEMP); a lone '%' stays.
// Values are inserted as they are and not searched again.
TWUTIL_API CString ReplacePathVariables(const CString& path, PATH_VARIABLE_LOOKUP lookup, void* context);

// ReplacePathVariables with the system's names, compared ignoring case:
// %ProgDir% (the directory of the running program), %DocDir% (ReturnDocDir),
// then any environment variable (%TEMP%, %APPDATA%, %USERPROFILE%, ...;
// natively case-sensitive as the environment is). Directories come without
// a trailing backslash.
TWUTIL_API CString ReplacePathVariables(CString path);

// The system's answer for one path variable, as ReplacePathVariables(CString)
// uses it.
TWUTIL_API BOOL LookupSystemPathVariable(const char* name, CString& value, void* context);
