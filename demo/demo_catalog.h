// The demo's catalogue: every feature file registers the entries it shows.
//
// An entry has a menu group and label, a function that shows the feature to
// a person, and a tour function that shows it once without a person and
// saves a picture of each window through the tour.
#pragma once

#include "afxwin.h"

#include <functional>
#include <string>
#include <vector>

// What the tour collects: the folder for the pictures and their outcome.
class DemoTour
{
public:
    explicit DemoTour(std::string folder) : m_folder(std::move(folder)) {}

    // Saves a picture of `wnd` as NN-name.png and prints where it went.
    bool Shot(HWND wnd, const char* name);

    // Opens a modal window with `open`, saves a picture of it once it is
    // shown and painted, and closes it with IDCANCEL (or `closeId`).
    bool ShotModal(const char* name, const std::function<void()>& open, UINT closeId = IDCANCEL);

    bool AllSaved() const { return m_failed == 0 && m_saved > 0; }

private:
    std::string m_folder;
    int m_saved = 0;
    int m_failed = 0;
};

// One feature of the demo.
struct DemoEntry
{
    const char* group;  // menu title, e.g. "&Dialoge"
    const char* label;  // menu item text
    std::function<void(CWnd* parent)> run;
    std::function<void(DemoTour& tour, CWnd* parent)> tour;
};

// Registers an entry at start-up: `static DemoRegistrar r{{...}};`.
struct DemoRegistrar
{
    explicit DemoRegistrar(DemoEntry entry);
};

// Every registered entry, ordered by group and then by registration.
const std::vector<DemoEntry>& DemoEntries();

// Handles pending messages and waits up to `ms` for more, so that shown
// windows are mapped and painted.
void DemoSettle(DWORD ms);
