#include "connect_cad.h"

#include <gtest/gtest.h>

TEST(ConnectCad, WithoutTheDrawingModuleNothingIsDrawn)
{
    // "kernel32.dll" exists on Windows but has no drawing entry.
    const char* modules[] = {nullptr, "", "no_such_cad_module.dll", "kernel32.dll"};
    CRect clip(0, 0, 10, 10);
    for (const char* module : modules) {
        CConnectCAD cad(module);
        EXPECT_FALSE(cad._isCadAvailable()) << (module ? module : "(null)");
        EXPECT_FALSE(cad._DrawBild(nullptr, "bild.jpg", 0, 0, 10, 10, 260, &clip));
        EXPECT_FALSE(cad._DrawBild(nullptr, nullptr, 0, 0, 10, 10, 260, nullptr));
    }
    // The test folder has no TwCad.dll, so the default bridge is unavailable too.
    CConnectCAD standard;
    EXPECT_FALSE(standard._isCadAvailable());
    EXPECT_EQ(clip, CRect(0, 0, 10, 10)) << "the clip rectangle is left alone";
}
