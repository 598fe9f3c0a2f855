#include "file_operation.h"
#include "file_name.h"

CString CFileOperation::CopyTarget(const char* source, const char* target)
{
    const CString to = target != nullptr ? target : "";
    if (to.IsEmpty())
        return to;
    const char last = to[to.GetLength() - 1];
    if (last != '\\' && last != '/')
        return to;
    return to + CFileName(source != nullptr ? source : "").GetNameExt();
}
