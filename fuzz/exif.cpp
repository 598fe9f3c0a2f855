// Property: decoding never crashes or reads outside the input; decoding the
// same bytes twice gives the same record and the same tags; every text is
// NUL-free (its length is its C length). The first byte chooses whether the
// rest is a whole JPEG or the body of an EXIF segment, so that both the
// segment walk and the TIFF directories are reached quickly.
#include "exif.h"

#include "fuzz_check.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

void CheckText(const CString& s)
{
    Check(std::strlen(s.GetString()) == size_t(s.GetLength()));
}

void Collect(const ExifTag& tag, void* context)
{
    Check(tag.text && tag.name && tag.ifd);
    std::string line = std::string(tag.ifd) + "/" + tag.name + "=" + tag.text;
    static_cast<std::vector<std::string>*>(context)->push_back(line);
}

bool SameNumber(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool SameInfo(const tag_ExifInfo& a, const tag_ExifInfo& b)
{
    return a.IsExif == b.IsExif && a.CameraMake == b.CameraMake && a.CameraModel == b.CameraModel &&
           a.DateTime == b.DateTime && a.UserComment == b.UserComment && a.Orientation == b.Orientation &&
           a.Width == b.Width && a.Height == b.Height && SameNumber(a.ExposureTime, b.ExposureTime) &&
           SameNumber(a.FNumber, b.FNumber) && a.ISOequivalent == b.ISOequivalent && a.Flash == b.Flash &&
           SameNumber(a.GpsLatitude, b.GpsLatitude) && SameNumber(a.GpsAltitude, b.GpsAltitude);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    bool whole;
    if (!TakeReaderChoice(data, size, whole))
        return 0;

    tag_ExifInfo first, second;
    std::vector<std::string> tags1, tags2;
    Cexif a(&first), b(&second);
    const bool r1 = whole ? a.DecodeExif(data, size, Collect, &tags1) : a.DecodeExifBlock(data, size, Collect, &tags1);
    const bool r2 = whole ? b.DecodeExif(data, size, Collect, &tags2) : b.DecodeExifBlock(data, size, Collect, &tags2);
    Check(r1 == r2 && r1 == bool(first.IsExif));
    Check(tags1 == tags2);
    Check(SameInfo(first, second));
    Check(r1 || tags1.empty());
    Check(first.Orientation >= 0 && first.Orientation <= 8);
    for (const CString* s :
         {&first.CameraMake, &first.CameraModel, &first.Software, &first.Artist, &first.Copyright,
          &first.ImageDescription, &first.UserComment, &first.LensModel, &first.DateTime, &first.DateTimeModified})
        CheckText(*s);
    return 0;
}
