// Walking the marker segments of a JPEG stream, shared by the EXIF and IPTC
// readers. Internal to twutil.
#pragma once

#include "afxplatform.h"

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace twutil_jpeg {

// Bytes of a JPEG stream, from memory or from an open file.
class ByteSource
{
public:
    virtual ~ByteSource() = default;
    // Copies up to n bytes to dst; returns how many there were.
    virtual size_t Read(BYTE* dst, size_t n) = 0;
    // Moves n bytes on; false when the stream ended first.
    virtual bool Skip(size_t n) = 0;
};

// A byte range in memory.
class MemorySource : public ByteSource
{
public:
    MemorySource(const BYTE* data, size_t size) : m_data(data), m_size(data ? size : 0) {}
    size_t Read(BYTE* dst, size_t n) override;
    bool Skip(size_t n) override;

private:
    const BYTE* m_data;
    size_t m_size;
    size_t m_pos = 0;
};

// An open file, read from its current position.
class FileSource : public ByteSource
{
public:
    explicit FileSource(FILE* file) : m_file(file) {}
    size_t Read(BYTE* dst, size_t n) override;
    bool Skip(size_t n) override;

private:
    FILE* m_file;
};

// One marker segment; body excludes the marker and the length field.
struct Segment
{
    BYTE marker;
    const BYTE* body;
    size_t size;
    // The stream ended inside the body: body holds only what was there.
    bool truncated;
};

// Whether a marker starts a frame (SOF0..SOF15 without DHT, JPG and DAC).
bool IsFrameMarker(BYTE marker);

// Walks the segments from SOI up to SOS or EOI. Bodies of the markers that
// want() accepts are read (at most 65533 bytes each) and handed to
// onSegment, which returns false to stop; others are skipped unread. Stops
// quietly at a malformed marker or a length field below 2. Returns false
// when the stream does not begin with SOI.
bool ScanSegments(ByteSource& source, const std::function<bool(BYTE)>& want,
                  const std::function<bool(const Segment&)>& onSegment);

// UTF-8 to cp1252; characters the code page lacks and bytes that are not
// valid UTF-8 become '?' (one per character or byte).
std::string Utf8ToCp1252(std::string_view utf8);
// Whether text is valid UTF-8 with at least one multi-byte sequence, which
// cp1252 text with letters beyond ASCII practically never is.
bool LooksLikeUtf8(std::string_view text);

}  // namespace twutil_jpeg
