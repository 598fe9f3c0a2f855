// A host of the installed package: uses something of each area across the
// DLL boundaries (afx, twutil, and the library's frame, values, picture tags
// and dialogs) and prints what it got; the install test reads the result.
// This file is UTF-8; its narrow literals are code page 1252 only if the
// package hands the host its charset option.
#include "afxwin.h"
#include "twstddlg.h"
#include "twutil.h"

#include <cstdio>

int main()
{
    int failures = 0;
    auto check = [&](bool ok, const char* what) {
        std::printf("%s %s\n", ok ? "ok" : "FAILED", what);
        if (!ok)
            ++failures;
    };

    CColorArray colors;
    CColor red;
    red.Set("Rot", GetColor(6), 1);
    CColor blue;
    blue.Set("Blau", GetColor(14), 2);
    colors.Add(red);
    colors.Add(blue);
    CColor again;
    again.Set("ROT", 0x00123456, 3);
    const INT_PTR refused = colors.Add(again);

    check(colors.GetSize() == 2 && refused == -1, "CColorArray keeps names unique");
    check(colors.FindColor("blau") == 1, "FindColor ignores case");
    check(colors.GetRGB("rot") == 0x000000FF, "GetRGB of a palette colour");

    CString name = GetColorString(11);
    check(name == "DARKGREEN", "GetColorString(11)");
    name += "/";
    name += GetColorString(GetColorIndex("some lightblue text"));
    check(name == "DARKGREEN/LIGHTBLUE", "CString built from palette names");

    // Code page 1252 on both sides of the boundary: "ü" and "ß" are one byte.
    check(convertRGBName2ColorRef("grün") == 0x00008000, "German name with umlaut");
    const CString white = convertColorRef2Name(0x00FFFFFF);
    check(white == "weiß" && white.GetLength() == 4, "German name of white");

    CString joined;
    joined.Format("%s-%d", "afx", 42);
    check(joined == "afx-42", "CString::Format of afx");

    CStringArray fields;
    SplitCSVLine("eins;\"zwei;drei\"", ';', &fields);
    check(fields.GetSize() == 2 && fields[1] == "zwei;drei", "SplitCSVLine of twutil");

    CModuleVersion version;
    check(version.GetFileVersionInfo("twstddlg.dll") && version.GetValue("CompanyName") == "Tesselwerk",
          "CModuleVersion reads the library's version resource");

    // A tag from its text form where a tag is expected.
    CPictureTagArray tags;
    tags.AddSorted(CString("R10,20,30,40,12,70,\"Haus\""));
    check(tags.ToString() == "R10,20,30,40,12,70,\"Haus\";", "CPictureTagArray of a tag text");

    CAskSomething question("Alle löschen?", nullptr);
    question.m_bNoToAll = 1;
    check(question.DoModal() == CAskSomething::kNoToAll, "CAskSomething answers no to all without asking");

    std::printf("%s: %d failure(s)\n", failures == 0 ? "HOST PASSED" : "HOST FAILED", failures);
    return failures == 0 ? 0 : 1;
}
