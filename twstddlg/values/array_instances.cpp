// The CArray instantiations that the library exports, instantiated once here
// so that hosts link against one copy of each.
#include "twstddlg.h"

// What is exported is declared with TWSTDDLG_EXTERN_ARRAY (values/array_export.h).
template class CArray<CColor, CColor&>;
template class CArray<CSymbol, CSymbol&>;
template class CArray<_STRING_CHECK, _STRING_CHECK&>;
template class CArray<_BILD_IDENT, _BILD_IDENT&>;
template class CArray<CPictureTag, CPictureTag&>;
