#include "tw_exception.h"
#include "afxwin.h"

int CTwException::viewException(CException* exception, const char* text, const char* file, int line)
{
    return AfxMessageBox(FormatException(exception, text, file, line), MB_OK | MB_ICONERROR, 0);
}
