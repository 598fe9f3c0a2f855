// The user-facing text order of CompareStringA.
#include "string_helpers.h"

#include <array>
#include <cstring>

namespace {

// Base letters of a code page 1252 byte: one or two bytes, accents dropped.
struct BaseLetters
{
    unsigned char count;
    unsigned char letters[2];
};

constexpr std::array<BaseLetters, 256> MakeBaseTable()
{
    std::array<BaseLetters, 256> table{};
    for (int c = 0; c < 256; ++c)
        table[c] = {1, {static_cast<unsigned char>(c), 0}};
    auto one = [&table](int from, int to, char base) {
        for (int c = from; c <= to; ++c)
            table[c] = {1, {static_cast<unsigned char>(base), 0}};
    };
    auto two = [&table](int c, char first, char second) {
        table[c] = {2, {static_cast<unsigned char>(first), static_cast<unsigned char>(second)}};
    };
    one(0x8A, 0x8A, 'S');
    two(0x8C, 'O', 'E');
    one(0x8E, 0x8E, 'Z');
    one(0x9A, 0x9A, 's');
    two(0x9C, 'o', 'e');
    one(0x9E, 0x9E, 'z');
    one(0x9F, 0x9F, 'Y');
    one(0xC0, 0xC5, 'A');
    two(0xC6, 'A', 'E');
    one(0xC7, 0xC7, 'C');
    one(0xC8, 0xCB, 'E');
    one(0xCC, 0xCF, 'I');
    one(0xD0, 0xD0, 'D');
    one(0xD1, 0xD1, 'N');
    one(0xD2, 0xD6, 'O');
    one(0xD8, 0xD8, 'O');
    one(0xD9, 0xDC, 'U');
    one(0xDD, 0xDD, 'Y');
    two(0xDE, 'T', 'H');
    two(0xDF, 's', 's');
    one(0xE0, 0xE5, 'a');
    two(0xE6, 'a', 'e');
    one(0xE7, 0xE7, 'c');
    one(0xE8, 0xEB, 'e');
    one(0xEC, 0xEF, 'i');
    one(0xF0, 0xF0, 'd');
    one(0xF1, 0xF1, 'n');
    one(0xF2, 0xF6, 'o');
    one(0xF8, 0xF8, 'o');
    one(0xF9, 0xFC, 'u');
    one(0xFD, 0xFD, 'y');
    two(0xFE, 't', 'h');
    one(0xFF, 0xFF, 'y');
    return table;
}

constexpr std::array<BaseLetters, 256> kBase = MakeBaseTable();

// Where a number sorts among the letters: at the digit characters.
constexpr unsigned kNumberWeight = '0';

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// One element of a text: a letter (one base letter of a byte) or a number.
struct Element
{
    bool number = false;
    unsigned weight = 0;
    // Letter: the byte it came from (case-folded with the flag) and its
    // place in the expansion. Number: its digits.
    unsigned source = 0;
    const char* digits = nullptr;
    size_t runLength = 0;
    size_t significant = 0;
};

// Reads a text element by element.
class ElementReader
{
public:
    ElementReader(const char* text, bool fold) : m_text(text), m_fold(fold) {}

    bool Next(Element& e)
    {
        if (m_pending != 0) {
            e = m_pendingElement;
            m_pending = 0;
            return true;
        }
        if (*m_text == '\0')
            return false;
        if (IsDigit(*m_text)) {
            const char* start = m_text;
            while (IsDigit(*m_text))
                ++m_text;
            const char* firstSignificant = start;
            while (firstSignificant + 1 < m_text && *firstSignificant == '0')
                ++firstSignificant;
            e = {true, kNumberWeight, 0, firstSignificant, size_t(m_text - start), size_t(m_text - firstSignificant)};
            return true;
        }
        char c = *m_text++;
        if (m_fold)
            c = AfxToLower1252(c);
        const unsigned source = static_cast<unsigned char>(c);
        const BaseLetters& base = kBase[source];
        e = {false, base.letters[0], source << 1, nullptr, 0, 0};
        if (base.count == 2) {
            m_pendingElement = {false, base.letters[1], (source << 1) | 1u, nullptr, 0, 0};
            m_pending = 1;
        }
        return true;
    }

private:
    const char* m_text;
    bool m_fold;
    int m_pending = 0;
    Element m_pendingElement{};
};

int Sign(long long v)
{
    return v < 0 ? -1 : (v > 0 ? 1 : 0);
}

}  // namespace

int CompareStringA(const char* a, const char* b, bool flag)
{
    if (a == nullptr)
        a = "";
    if (b == nullptr)
        b = "";
    ElementReader ra(a, flag);
    ElementReader rb(b, flag);
    int zeros = 0;
    int accents = 0;
    for (;;) {
        Element ea;
        Element eb;
        const bool hasA = ra.Next(ea);
        const bool hasB = rb.Next(eb);
        if (!hasA || !hasB) {
            if (hasA != hasB)
                return hasA ? 1 : -1;
            break;
        }
        if (ea.weight != eb.weight)
            return ea.weight < eb.weight ? -1 : 1;
        if (ea.number) {
            if (ea.significant != eb.significant)
                return ea.significant < eb.significant ? -1 : 1;
            if (const int d = std::memcmp(ea.digits, eb.digits, ea.significant))
                return Sign(d);
            if (zeros == 0)
                zeros = Sign(static_cast<long long>(ea.runLength) - static_cast<long long>(eb.runLength));
        } else if (accents == 0) {
            accents = Sign(static_cast<long long>(ea.source) - static_cast<long long>(eb.source));
        }
    }
    if (zeros != 0)
        return zeros;
    if (accents != 0)
        return accents;
    return Sign(std::strcmp(a, b));
}
