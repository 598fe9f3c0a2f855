#include "jpeg_segments.h"

#include "cp1252.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace twutil_jpeg {

std::string Utf8ToCp1252(std::string_view in)
{
    std::string out;
    const size_t n = in.size();
    size_t i = 0;
    while (i < n) {
        const unsigned char b = static_cast<unsigned char>(in[i]);
        int extra;
        unsigned cp, min;
        if (b < 0x80) {
            out += static_cast<char>(b);
            ++i;
            continue;
        } else if ((b & 0xE0) == 0xC0) {
            extra = 1;
            cp = b & 0x1F;
            min = 0x80;
        } else if ((b & 0xF0) == 0xE0) {
            extra = 2;
            cp = b & 0x0F;
            min = 0x800;
        } else if ((b & 0xF8) == 0xF0) {
            extra = 3;
            cp = b & 0x07;
            min = 0x10000;
        } else {
            out += '?';
            ++i;
            continue;
        }

        int k = 1;
        for (; k <= extra && i + k < n; ++k) {
            const unsigned char c = static_cast<unsigned char>(in[i + k]);
            if ((c & 0xC0) != 0x80)
                break;
            cp = cp << 6 | (c & 0x3F);
        }
        if (k <= extra) {
            // A sequence cut short: its lead byte alone is invalid.
            out += '?';
            ++i;
            continue;
        }
        const bool valid = cp >= min && cp <= 0x10FFFF && !(cp >= 0xD800 && cp <= 0xDFFF);
        const int byte = valid ? twutil_cp1252::FromUnicode(cp) : -1;
        out += byte >= 0 ? static_cast<char>(byte) : '?';
        i += extra + 1;
    }
    return out;
}

size_t MemorySource::Read(BYTE* dst, size_t n)
{
    const size_t count = std::min(n, m_size - m_pos);
    if (count != 0)
        std::memcpy(dst, m_data + m_pos, count);
    m_pos += count;
    return count;
}

bool MemorySource::Skip(size_t n)
{
    if (n > m_size - m_pos) {
        m_pos = m_size;
        return false;
    }
    m_pos += n;
    return true;
}

size_t FileSource::Read(BYTE* dst, size_t n)
{
    return m_file ? std::fread(dst, 1, n, m_file) : 0;
}

bool FileSource::Skip(size_t n)
{
    // A seek past the end succeeds; the next read then finds nothing.
    return m_file && std::fseek(m_file, static_cast<long>(n), SEEK_CUR) == 0;
}

bool IsFrameMarker(BYTE marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

bool ScanSegments(ByteSource& source, const std::function<bool(BYTE)>& want,
                  const std::function<bool(const Segment&)>& onSegment)
{
    BYTE head[2];
    if (source.Read(head, 2) != 2 || head[0] != 0xFF || head[1] != 0xD8)
        return false;

    std::vector<BYTE> body;
    for (;;) {
        BYTE b = 0;
        if (source.Read(&b, 1) != 1 || b != 0xFF)
            return true;
        do {
            if (source.Read(&b, 1) != 1)
                return true;
        } while (b == 0xFF);

        const BYTE marker = b;
        if (marker == 0xD9 || marker == 0xDA || marker == 0x00)
            return true;
        if (marker == 0x01 || marker == 0xD8 || (marker >= 0xD0 && marker <= 0xD7))
            continue;

        BYTE len[2];
        if (source.Read(len, 2) != 2)
            return true;
        const size_t length = (static_cast<size_t>(len[0]) << 8) | len[1];
        if (length < 2)
            return true;
        const size_t size = length - 2;

        if (!want(marker)) {
            if (!source.Skip(size))
                return true;
            continue;
        }
        body.resize(size);
        const size_t got = size ? source.Read(body.data(), size) : 0;
        const Segment segment{marker, body.data(), got, got < size};
        if (!onSegment(segment) || segment.truncated)
            return true;
    }
}

bool LooksLikeUtf8(std::string_view text)
{
    bool multiByte = false;
    for (size_t i = 0; i < text.size();) {
        const unsigned char b = static_cast<unsigned char>(text[i]);
        if (b < 0x80) {
            ++i;
            continue;
        }
        const size_t extra = (b & 0xE0) == 0xC0 ? 1 : (b & 0xF0) == 0xE0 ? 2 : (b & 0xF8) == 0xF0 ? 3 : 0;
        if (extra == 0 || b == 0xC0 || b == 0xC1 || text.size() - i <= extra)
            return false;
        for (size_t k = 1; k <= extra; ++k)
            if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80)
                return false;
        multiByte = true;
        i += extra + 1;
    }
    return multiByte;
}

}  // namespace twutil_jpeg
