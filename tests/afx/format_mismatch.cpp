// Must not compile: each Format below pairs a literal format with an
// argument that does not fit it (the format_mismatch test expects the
// compiler to say so).
#include "afxstr.h"

void Mismatches(CString& text, int number, double ratio, long long big)
{
    text.Format("%s", number);
    text.Format("%d", ratio);
    text.Format("%d", big);
}
