#include "hyperlink.h"
#include "shell_seam.h"

HINSTANCE CHyperlink::Navigate() const
{
    const CString target = GetTarget();
    if (target.IsEmpty())
        return reinterpret_cast<HINSTANCE>(static_cast<INT_PTR>(SE_ERR_FNF));
    return TwGetShellSeam()->ShellExecuteA(nullptr, "open", target, nullptr, nullptr, SW_SHOWNORMAL);
}
