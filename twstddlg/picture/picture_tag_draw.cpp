// Picture tag drawing. The figures, captions, handles and help lines are
// drawn once the device-context layer is in place; until then these
// operations keep their places in the classes and draw nothing.
#include "picture/picture_tag.h"

void CPictureTagBase::Draw(CDC* dc, CSettings* settings, CPoint offset, float zoom, int drawFigure, int drawText)
{
    if (m_iVisible == 0 || dc == nullptr)
        return;
}

void CPictureTagBase::DrawObject(CDC* dc, int x, int y, int cx, int cy, int startKind, int endKind) {}

void CPictureTagBase::DrawDots(CDC* dc, CSettings* settings, CPoint offset, float zoom) {}

void CPictureTagBase::DrawHelpLine(CDC* dc, CSettings* settings, CPoint offset, float zoom) {}

void CPictureTag::DrawObject(CDC* dc, int x, int y, int cx, int cy, int startKind, int endKind) {}

void CPictureTag::DrawDots(CDC* dc, CSettings* settings, CPoint offset, float zoom) {}

void CPictureTag::DrawHelpLine(CDC* dc, CSettings* settings, CPoint offset, float zoom) {}
