#include "connect_cad.h"

#include "cad_module.h"

#ifndef _WIN32
namespace twutil_cad {

// No CAD module exists outside Windows.
void* LoadDrawingModule(const char*, TwCadDrawProc& draw)
{
    draw = nullptr;
    return nullptr;
}

void FreeDrawingModule(void*) {}

}  // namespace twutil_cad
#endif

CConnectCAD::CConnectCAD() : CConnectCAD(TWCAD_MODULE_NAME) {}

CConnectCAD::CConnectCAD(const char* moduleName) : m_module(nullptr), m_draw(nullptr)
{
    if (moduleName && *moduleName)
        m_module = twutil_cad::LoadDrawingModule(moduleName, m_draw);
    if (!m_module)
        m_draw = nullptr;
}

CConnectCAD::~CConnectCAD()
{
    if (m_module)
        twutil_cad::FreeDrawingModule(m_module);
}

BOOL CConnectCAD::_isCadAvailable() const
{
    return m_module != nullptr && m_draw != nullptr;
}

BOOL CConnectCAD::_DrawBild(CDC* dc, const char* file, int x, int y, int w, int h, int flags, CRect* clip)
{
    if (!_isCadAvailable() || !file || !*file)
        return FALSE;
    return m_draw(dc, file, x, y, w, h, flags, clip) != 0;
}
