// Reading the EXIF block (APP1 "Exif") of a JPEG picture.
//
// What callers can rely on:
// - Both TIFF byte orders ("II" and "MM") are read. Only the first APP1
//   segment that begins with "Exif\0" counts; at most 64 KB, the size of one
//   segment, is ever read or held.
// - Decoding never trusts the data: an IFD offset outside the block, an IFD
//   met a second time (a cycle) or nested deeper than the standard's chain
//   ends that IFD; an entry of an unknown type, or whose values (count times
//   size, computed without overflow) do not lie inside the block, is skipped;
//   an IFD whose entries run past the block keeps the entries that fit.
//   What was valid before the fault is kept.
// - IsExif is TRUE when the picture holds an EXIF segment with a valid TIFF
//   header whose first IFD lies inside the block, even if it holds no tags.
//   Data that is not a JPEG, a JPEG without EXIF or a broken header gives
//   IsExif FALSE with every other field at its "absent" value, and
//   GetLastError() says why.
// - Numbers are defined for every input: a zero denominator, a NaN or an
//   infinity (FLOAT and DOUBLE values) leaves its field absent, a GPS
//   position with such a part or beyond 90 degrees of latitude or 180 of
//   longitude is no position, and an integer field given a value outside
//   the int range reads 0.
// - Texts are taken up to the first NUL, with trailing blanks removed; they
//   never contain NUL. EXIF says ASCII, but writers store either code page
//   1252 or UTF-8 there: a text that is valid UTF-8 with at least one
//   multi-byte sequence is converted from UTF-8 to cp1252 ('?' for what the
//   code page lacks), any other text is taken as cp1252 bytes.
//
// Recording in a settings store: every tag that was read is set under
// "EXIF.<TagName>" (the thumbnail's IFD1 under "EXIF.IFD1.<TagName>"), with
// the tag names of the EXIF standard ("Make", "DateTimeOriginal",
// "ISOSpeedRatings", "GPSLatitude") and "Tag0xHHHH" for tags this reader does
// not know. A single integer is stored with setInt (setDouble when it does
// not fit an int), a single rational or floating value with setDouble, and
// everything else (texts, several values, bytes) with setString as its
// display text. A later tag of the same key overwrites an earlier one; a set
// that the store refuses is skipped.
#pragma once

#include "twutil_api.h"
#include "afxstr.h"

#include <cstddef>
#include <cstdio>

class CSettings;

// The decoded EXIF information of one picture, as the list of
// "Exif-Informationen" shows it. Numbers absent from the file keep the
// value given here.
struct tag_ExifInfo
{
    // TRUE when EXIF data was found.
    BOOL IsExif = FALSE;

    CString CameraMake;
    CString CameraModel;
    CString Software;
    CString Artist;
    CString Copyright;
    CString ImageDescription;
    CString UserComment;
    CString LensModel;
    // Capture time "YYYY:MM:DD HH:MM:SS": DateTimeOriginal, else
    // DateTimeDigitized, else the IFD0 DateTime.
    CString DateTime;
    // The IFD0 DateTime (last change of the file).
    CString DateTimeModified;

    // 1..8 as the EXIF standard numbers them; 0 when absent or invalid.
    int Orientation = 0;
    // PixelXDimension/PixelYDimension, else the size of the JPEG frame; 0 if neither.
    int Width = 0;
    int Height = 0;

    // Seconds; from ShutterSpeedValue when ExposureTime is absent; 0 if neither.
    double ExposureTime = 0.0;
    // From ApertureValue when FNumber is absent; 0 if neither.
    double FNumber = 0.0;
    // ExposureBiasValue in EV.
    double ExposureBias = 0.0;
    // Millimetres; 0 when absent.
    double FocalLength = 0.0;
    int FocalLength35mm = 0;
    // Metres; 0 when absent.
    double SubjectDistance = 0.0;
    double DigitalZoomRatio = 0.0;
    // ISOSpeedRatings (first value); 0 when absent.
    int ISOequivalent = 0;

    // The raw Flash value (bit 0: the flash fired); -1 when absent.
    int Flash = -1;
    // Raw values of the EXIF standard; -1 when absent.
    int ExposureProgram = -1;
    int MeteringMode = -1;
    int LightSource = -1;
    int WhiteBalance = -1;
    int ExposureMode = -1;
    int SceneCaptureType = -1;

    double XResolution = 0.0;
    double YResolution = 0.0;
    // 2 inches, 3 centimetres; 0 when absent.
    int ResolutionUnit = 0;

    // TRUE when both GPS latitude and longitude were read.
    BOOL HasGps = FALSE;
    // Degrees, south and west negative.
    double GpsLatitude = 0.0;
    double GpsLongitude = 0.0;
    // TRUE when the GPS altitude was read.
    BOOL HasGpsAltitude = FALSE;
    // Metres, below sea level negative.
    double GpsAltitude = 0.0;

    // Whether the flash fired.
    bool FlashUsed() const { return Flash > 0 && (Flash & 1) != 0; }
};
typedef tag_ExifInfo EXIFINFO;

// One tag as the decoder meets it, handed to an ExifTagCallback.
struct ExifTag
{
    // "IFD0", "ExifIFD", "GPS", "Interop" or "IFD1".
    const char* ifd;
    WORD id;
    // The EXIF standard's name, or "Tag0xHHHH".
    const char* name;
    // TIFF type (1 BYTE .. 12 DOUBLE) and value count.
    WORD type;
    DWORD count;
    // Display text: the text of an ASCII value, values separated by blanks
    // (at most 64, then " ..."), rationals as decimals ("inf" or "undef" for
    // a zero denominator), floating values that are not finite as "nan",
    // "inf" or "-inf". NUL-free.
    const char* text;
    // A single numeric value that is finite, with its value in number.
    bool isNumber;
    // That value is a whole number (integer types).
    bool isInteger;
    double number;
};

// Receives each tag of a decode, in file order.
typedef void (*ExifTagCallback)(const ExifTag& tag, void* context);

// Decodes the EXIF block of a JPEG into a tag_ExifInfo record.
class TWUTIL_API Cexif
{
public:
    // Decodes into info, which must outlive this object; a null info uses a
    // record of the object's own.
    explicit Cexif(tag_ExifInfo* info = nullptr);
    Cexif(const Cexif&) = delete;
    Cexif& operator=(const Cexif&) = delete;

    // Reads the JPEG from the file's current position (its start) up to the
    // image data and decodes its EXIF block; when store is given, also records
    // every tag in it. Returns the record's IsExif. A null file gives FALSE.
    bool DecodeExif(FILE* file, CSettings* store = nullptr);
    // As above, calling tagCallback for every tag.
    bool DecodeExif(FILE* file, ExifTagCallback tagCallback, void* context);
    // Decodes a whole JPEG held in memory.
    bool DecodeExif(const BYTE* jpeg, size_t size, CSettings* store = nullptr);
    bool DecodeExif(const BYTE* jpeg, size_t size, ExifTagCallback tagCallback, void* context);
    // Decodes the body of an APP1 segment ("Exif\0\0" followed by the TIFF
    // block) or a bare TIFF block beginning with "II" or "MM".
    bool DecodeExifBlock(const BYTE* block, size_t size, ExifTagCallback tagCallback = nullptr,
                         void* context = nullptr);

    // The record decoded into.
    tag_ExifInfo* GetInfo() const { return m_exifinfo; }
    // Why the last decode found no EXIF data; empty after success.
    const CString& GetLastError() const { return m_lastError; }

    tag_ExifInfo* m_exifinfo;

private:
    tag_ExifInfo m_ownInfo;
    CString m_lastError;
};
