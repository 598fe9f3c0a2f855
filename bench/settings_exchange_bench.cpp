// Writes and reads a settings store of 100,000 keys as INI and XML files and
// times it against the platform's own readers of the same files:
// GetPrivateProfileSectionA for the INI file and an MSXML DOMDocument load
// for the XML file. Best of several runs; MB/s counts the file's bytes.
#include "settings.h"

#include <ole2.h>
#include <msxml2.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

// Msxml2.DOMDocument.6.0 and the version-independent Msxml2.DOMDocument.
const CLSID kDomDocument60 = {0x88d96a05, 0xf192, 0x11d4, {0xa6, 0x5f, 0x00, 0x40, 0x96, 0x32, 0x51, 0xe5}};
const CLSID kDomDocument = {0xf6d90f11, 0x9c73, 0x11d3, {0xb3, 0x2e, 0x00, 0xc0, 0x4f, 0x99, 0x0b, 0xb4}};
const IID kIXMLDOMDocument = {0x2933bf81, 0x7b36, 0x11d2, {0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e, 0x60}};

const int kKeys = 100000;
const char kSection[] = "Bildverwaltung";

double Now()
{
    static LARGE_INTEGER frequency = [] {
        LARGE_INTEGER f;
        QueryPerformanceFrequency(&f);
        return f;
    }();
    LARGE_INTEGER t;
    QueryPerformanceCounter(&t);
    return double(t.QuadPart) / double(frequency.QuadPart);
}

// The best time of runs calls; setup runs before each call, untimed.
double Best(
    int runs, const std::function<bool()>& timed, const std::function<void()>& setup = [] {})
{
    double best = 1e30;
    for (int i = 0; i < runs; ++i) {
        setup();
        const double start = Now();
        if (!timed()) {
            std::printf("  run failed\n");
            return -1;
        }
        const double t = Now() - start;
        if (t < best)
            best = t;
    }
    return best;
}

long long FileSize(const std::string& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data))
        return 0;
    return (long long)data.nFileSizeHigh << 32 | data.nFileSizeLow;
}

void Fill(CSettings& s)
{
    char key[64];
    char text[64];
    for (int i = 0; i < kKeys; ++i) {
        std::snprintf(key, sizeof key, "Gruppe%03d.Eintrag%06d", i % 500, i);
        switch (i % 5) {
        case 0:
            s.setInt(key, i * 7919);
            break;
        case 1:
            s.setDouble(key, i / 7.0);
            break;
        case 2:
            std::snprintf(text, sizeof text, "Größe %d & Farbe <grün>", i);
            s.setString(key, text);
            break;
        case 3:
            s.setBool(key, i & 8);
            break;
        default:
            std::snprintf(text, sizeof text, "C:\\Bilder\\Urlaub\\IMG_%05d.JPG", i);
            s.setFile(key, text);
            break;
        }
    }
}

void Report(const char* what, double seconds, long long bytes)
{
    std::printf("  %-44s %8.1f ms %8.1f MB/s\n", what, seconds * 1e3, double(bytes) / seconds / 1e6);
}

}  // namespace

int main()
{
    char tempDir[MAX_PATH];
    GetTempPathA(MAX_PATH, tempDir);
    const std::string ini = std::string(tempDir) + "tw_settings_bench.ini";
    const std::string xml = std::string(tempDir) + "tw_settings_bench.xml";

    CSettings store;
    Fill(store);
    std::printf("settings exchange, %d keys\n", kKeys);

    // INI.
    const double iniWrite = Best(5, [&] { return store.ExchangeSettings(0, kSection, ini.c_str()) == 1; });
    const long long iniBytes = FileSize(ini);
    CSettings* fresh = nullptr;
    const double iniRead = Best(
        5, [&] { return fresh->ExchangeSettings(1, kSection, ini.c_str()) == 1; },
        [&] {
            delete fresh;
            fresh = new CSettings;
        });
    const bool iniSame = fresh->IsEqual(store);
    const double iniMerge = Best(5, [&] { return fresh->ExchangeSettings(1, kSection, ini.c_str()) == 1; });

    // The platform caches profile files it has read, so each run reads its own copy.
    std::vector<char> section(64 << 20);
    int copy = 0;
    std::string copyPath;
    DWORD sectionChars = 0;
    const double profileRead = Best(
        3,
        [&] {
            sectionChars = GetPrivateProfileSectionA(kSection, section.data(), DWORD(section.size()), copyPath.c_str());
            return sectionChars > 0;
        },
        [&] {
            copyPath = std::string(tempDir) + "tw_settings_bench_" + std::to_string(copy++) + ".ini";
            CopyFileA(ini.c_str(), copyPath.c_str(), FALSE);
        });

    std::printf(" INI file %.1f MB (%s)\n", iniBytes / 1e6, iniSame ? "read back equal" : "READ BACK DIFFERS");
    Report("CSettings write", iniWrite, iniBytes);
    Report("CSettings read into an empty store", iniRead, iniBytes);
    Report("CSettings read into a full store", iniMerge, iniBytes);
    if (profileRead > 0)
        Report("GetPrivateProfileSectionA", profileRead, iniBytes);
    std::printf("  ratio read/GetPrivateProfileSectionA: %.1fx (empty store), %.1fx (full store)\n",
                profileRead / iniRead, profileRead / iniMerge);

    // XML.
    const double xmlWrite = Best(5, [&] { return store.ExchangeSettings(0, kSection, xml.c_str()) == 1; });
    const long long xmlBytes = FileSize(xml);
    const double xmlRead = Best(
        5, [&] { return fresh->ExchangeSettings(1, kSection, xml.c_str()) == 1; },
        [&] {
            delete fresh;
            fresh = new CSettings;
        });
    const bool xmlSame = fresh->IsEqual(store);
    const double xmlMerge = Best(5, [&] { return fresh->ExchangeSettings(1, kSection, xml.c_str()) == 1; });
    delete fresh;

    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IXMLDOMDocument* doc = nullptr;
    const char* domName = "DOMDocument60";
    HRESULT hr = CoCreateInstance(kDomDocument60, nullptr, CLSCTX_INPROC_SERVER, kIXMLDOMDocument,
                                  reinterpret_cast<void**>(&doc));
    if (FAILED(hr)) {
        domName = "DOMDocument";
        hr = CoCreateInstance(kDomDocument, nullptr, CLSCTX_INPROC_SERVER, kIXMLDOMDocument,
                              reinterpret_cast<void**>(&doc));
    }
    double domLoad = -1;
    if (SUCCEEDED(hr)) {
        doc->Release();
        doc = nullptr;
        std::wstring wide(xml.begin(), xml.end());
        domLoad = Best(
            3,
            [&] {
                VARIANT source;
                VariantInit(&source);
                source.vt = VT_BSTR;
                source.bstrVal = SysAllocString(wide.c_str());
                VARIANT_BOOL ok = VARIANT_FALSE;
                const HRESULT loaded = doc->load(source, &ok);
                VariantClear(&source);
                return SUCCEEDED(loaded) && ok == VARIANT_TRUE;
            },
            [&] {
                if (doc)
                    doc->Release();
                doc = nullptr;
                CoCreateInstance(domName[11] == '6' ? kDomDocument60 : kDomDocument, nullptr, CLSCTX_INPROC_SERVER,
                                 kIXMLDOMDocument, reinterpret_cast<void**>(&doc));
                doc->put_async(VARIANT_FALSE);
            });
        if (doc)
            doc->Release();
    } else
        std::printf("  MSXML is not available (0x%08lX)\n", (unsigned long)hr);
    CoUninitialize();

    std::printf(" XML file %.1f MB (%s)\n", xmlBytes / 1e6, xmlSame ? "read back equal" : "READ BACK DIFFERS");
    Report("CSettings write", xmlWrite, xmlBytes);
    Report("CSettings read into an empty store", xmlRead, xmlBytes);
    Report("CSettings read into a full store", xmlMerge, xmlBytes);
    if (domLoad > 0) {
        char what[64];
        std::snprintf(what, sizeof what, "MSXML %s load", domName);
        Report(what, domLoad, xmlBytes);
        std::printf("  ratio read/MSXML load: %.1fx (empty store), %.1fx (full store)\n", domLoad / xmlRead,
                    domLoad / xmlMerge);
    }

    DeleteFileA(ini.c_str());
    DeleteFileA(xml.c_str());
    for (int i = 0; i < copy; ++i)
        DeleteFileA((std::string(tempDir) + "tw_settings_bench_" + std::to_string(i) + ".ini").c_str());
    return iniSame && xmlSame ? 0 : 1;
}
