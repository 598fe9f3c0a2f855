// Reading the IPTC records (IIM) of a JPEG picture: APP13 "Photoshop 3.0",
// image resource 0x0404.
//
// What callers can rely on:
// - The datasets of the envelope record (1) and the application record (2)
//   are kept in file order as entries of record, dataset number and text;
//   other records (pre-object data, object data, ...) are skipped. A
//   repeated dataset such as 2:25 keywords gives one entry per occurrence.
// - Texts are code page 1252. When the envelope holds a coded character set
//   1:90 of ESC % G (UTF-8), every text is converted from UTF-8; characters
//   that code page 1252 lacks, and bytes that are not valid UTF-8, become
//   '?' (one per character or byte). Without it the bytes are taken as they
//   are. A text ends at its first NUL byte, so no text holds NUL.
// - The binary datasets 1:00, 1:20, 1:22 and 2:00 (version and format
//   numbers) are given as decimal text ("4"); 1:90 as its bytes with ESC
//   spelt out ("ESC % G").
// - Corrupt data never crashes the reader and never makes it read beyond the
//   data: segments whose length runs past the end keep the bytes present,
//   a dataset whose length runs past its resource or that does not begin
//   with the tag marker 0x1C ends the reading, and the datasets read before
//   it are kept. At most 64 KB per APP13 segment and 16 segments are read;
//   the resources of consecutive APP13 segments are read as one stream.
#pragma once

#include "twutil_api.h"
#include "afxstr.h"
#include "afxtempl.h"
#include "afxcoll.h"

#include <cstddef>

// One IPTC dataset: record number, dataset number and its text.
struct CIPTCEntry
{
    int record = 0;
    int dataset = 0;
    CString text;
};

// The IPTC data of one picture.
class TWUTIL_API CIPTC
{
public:
    CIPTC();

    // Reads the IPTC data of a JPEG file. Returns 1 when at least one dataset
    // was read, 0 otherwise (file missing or unreadable, not a JPEG, no IPTC
    // resource, no valid dataset). Earlier data is discarded first.
    int OpenFile(CString fileName);
    // As OpenFile, for a whole JPEG held in memory.
    int OpenMemory(const BYTE* jpeg, size_t size);
    // Reads bare IIM datasets, the content of resource 0x0404; same result.
    int DecodeIIM(const BYTE* data, size_t size);

    // Number of entries read.
    INT_PTR GetCount() const { return m_data.GetSize(); }
    // Entry at an index 0..GetCount()-1; throws CInvalidArgException* otherwise.
    const CIPTCEntry& GetAt(INT_PTR index) const { return m_data.GetAt(index); }
    // All entries in file order.
    const CArray<CIPTCEntry, const CIPTCEntry&>& GetData() const { return m_data; }
    // Text of the first entry of a dataset; empty when there is none.
    CString GetValue(int record, int dataset) const;
    // Texts of every entry of a dataset in file order (keywords); returns their count.
    INT_PTR GetValues(int record, int dataset, CStringArray& values) const;
    // Whether the texts were converted from UTF-8 (1:90 said so).
    BOOL IsUtf8() const { return m_utf8; }
    // Discards all entries.
    void RemoveAll();

    // The IIM name of a dataset ("Caption-Abstract", "Keywords", "By-line",
    // "City"); NULL for a dataset this reader does not know.
    static const char* GetDatasetName(int record, int dataset);

private:
    CArray<CIPTCEntry, const CIPTCEntry&> m_data;
    BOOL m_utf8;
};

// Named datasets of the application record (2), the ones a list shows.
enum IptcDataset
{
    IPTC_RECORD_VERSION = 0,
    IPTC_OBJECT_NAME = 5,
    IPTC_URGENCY = 10,
    IPTC_CATEGORY = 15,
    IPTC_SUPPLEMENTAL_CATEGORY = 20,
    IPTC_KEYWORDS = 25,
    IPTC_SPECIAL_INSTRUCTIONS = 40,
    IPTC_DATE_CREATED = 55,
    IPTC_TIME_CREATED = 60,
    IPTC_BYLINE = 80,
    IPTC_BYLINE_TITLE = 85,
    IPTC_CITY = 90,
    IPTC_SUBLOCATION = 92,
    IPTC_PROVINCE_STATE = 95,
    IPTC_COUNTRY_CODE = 100,
    IPTC_COUNTRY_NAME = 101,
    IPTC_TRANSMISSION_REFERENCE = 103,
    IPTC_HEADLINE = 105,
    IPTC_CREDIT = 110,
    IPTC_SOURCE = 115,
    IPTC_COPYRIGHT_NOTICE = 116,
    IPTC_CAPTION = 120,
    IPTC_WRITER_EDITOR = 122,
};
