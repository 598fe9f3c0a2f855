// The dialog driver: a WH_CALLWNDPROCRET hook notices dialogs that were
// initialised and then shown, and a message-only window runs the scripts
// from the dialog's own message loop.
#include "dialog_driver.h"

#include <algorithm>
#include <cassert>
#include <vector>

namespace {

constexpr char kDriverClass[] = "TwDialogDriver";
constexpr UINT kStartMessage = WM_APP + 0x3A0;
constexpr UINT kMarkerMessage = WM_APP + 0x3A1;
constexpr UINT_PTR kWatchdogTimer = 1;
constexpr ATOM kDialogAtom = 0x8002;

DialogDriver* g_driver = nullptr;

bool IsTopLevelDialog(HWND hWnd)
{
    return ::GetClassWord(hWnd, GCW_ATOM) == kDialogAtom && (::GetWindowLongA(hWnd, GWL_STYLE) & WS_CHILD) == 0;
}

std::string WindowText(HWND hWnd)
{
    const int length = ::GetWindowTextLengthA(hWnd);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    const int copied = ::GetWindowTextA(hWnd, text.data(), length + 1);
    text.resize(static_cast<std::size_t>(std::max(copied, 0)));
    return text;
}

}  // namespace

// ---- DialogHandle ----

HWND DialogHandle::Item(int id) const
{
    return ::GetDlgItem(m_hWnd, id);
}

std::string DialogHandle::Caption() const
{
    return WindowText(m_hWnd);
}

std::string DialogHandle::Text(int id) const
{
    return WindowText(Item(id));
}

void DialogHandle::SetText(int id, const char* text)
{
    ::SetWindowTextA(Item(id), text);
}

int DialogHandle::Check(int id) const
{
    return static_cast<int>(::SendMessageA(Item(id), BM_GETCHECK, 0, 0));
}

void DialogHandle::SetCheck(int id, int state)
{
    ::SendMessageA(Item(id), BM_SETCHECK, static_cast<WPARAM>(state), 0);
}

HWND DialogHandle::Focus() const
{
    return ::GetFocus();
}

void DialogHandle::Click(int id)
{
    ::SendMessageA(Item(id), BM_CLICK, 0, 0);
    Pump();
}

void DialogHandle::Command(int id, UINT code)
{
    ::SendMessageA(m_hWnd, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(Item(id)));
    Pump();
}

void DialogHandle::Key(UINT vk, UINT modifiers)
{
    HWND target = ::GetFocus();
    if (target == nullptr || (target != m_hWnd && !::IsChild(m_hWnd, target)))
        target = m_hWnd;

    BYTE saved[256] = {};
    ::GetKeyboardState(saved);
    BYTE held[256];
    std::copy(std::begin(saved), std::end(saved), std::begin(held));
    const auto press = [&](UINT key, bool down) { held[key] = down ? 0x80 : 0x00; };
    press(VK_SHIFT, modifiers & kShift);
    press(VK_LSHIFT, modifiers & kShift);
    press(VK_CONTROL, modifiers & kCtrl);
    press(VK_LCONTROL, modifiers & kCtrl);
    press(VK_MENU, modifiers & kAlt);
    press(VK_LMENU, modifiers & kAlt);
    ::SetKeyboardState(held);

    const UINT scan = ::MapVirtualKeyA(vk, MAPVK_VK_TO_VSC);
    LPARAM lDown = 1 | (static_cast<LPARAM>(scan) << 16);
    if (modifiers & kAlt)
        lDown |= LPARAM{1} << 29;
    const LPARAM lUp = lDown | (LPARAM{1} << 30) | (LPARAM{1} << 31);
    const bool system = (modifiers & kAlt) != 0 || vk == VK_F10;
    ::PostMessageA(target, system ? WM_SYSKEYDOWN : WM_KEYDOWN, vk, lDown);
    ::PostMessageA(target, system ? WM_SYSKEYUP : WM_KEYUP, vk, lUp);
    Pump();

    ::SetKeyboardState(saved);
}

void DialogHandle::Pump()
{
    DialogDriver* driver = g_driver;
    if (driver == nullptr)
        return;
    const unsigned marker = ++driver->m_markerSent;
    ::PostMessageA(driver->m_hWndDriver, kMarkerMessage, marker, 0);
    while (g_driver == driver && driver->m_markerSeen < marker) {
        if (!AfxPumpMessage()) {
            // Leave the quit request for the loop that owns it.
            AfxPostQuitMessage(0);
            break;
        }
    }
}

void DialogHandle::End(int nResult)
{
    if (auto* pDialog = DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(m_hWnd)))
        pDialog->EndDialog(nResult);
    else
        ::EndDialog(m_hWnd, nResult);
}

bool DialogHandle::IsOpen() const
{
    return ::IsWindow(m_hWnd) && ::IsWindowVisible(m_hWnd);
}

// ---- DialogDriver ----

DialogDriver::DialogDriver(UINT nWatchdogMs) : m_nWatchdogMs(nWatchdogMs)
{
    assert(g_driver == nullptr);
    g_driver = this;

    const HINSTANCE hInst = ::GetModuleHandleA(nullptr);
    WNDCLASSA wc = {};
    if (!::GetClassInfoA(hInst, kDriverClass, &wc)) {
        wc.lpfnWndProc = &DriverWndProc;
        wc.hInstance = hInst;
        wc.lpszClassName = kDriverClass;
        ::RegisterClassA(&wc);
    }
    m_hWndDriver = ::CreateWindowExA(0, kDriverClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, hInst, nullptr);
    m_hHook = ::SetWindowsHookExA(WH_CALLWNDPROCRET, &HookProc, nullptr, ::GetCurrentThreadId());
}

DialogDriver::~DialogDriver()
{
    if (m_hHook != nullptr)
        ::UnhookWindowsHookEx(m_hHook);
    if (m_hWndDriver != nullptr)
        ::DestroyWindow(m_hWndDriver);
    g_driver = nullptr;
}

void DialogDriver::OnDialog(Script script, const char* caption)
{
    m_scripts.push_back({std::move(script), caption != nullptr ? caption : ""});
    ::SetTimer(m_hWndDriver, kWatchdogTimer, m_nWatchdogMs, nullptr);
}

LRESULT CALLBACK DialogDriver::HookProc(int code, WPARAM wParam, LPARAM lParam)
{
    DialogDriver* driver = g_driver;
    if (code == HC_ACTION && driver != nullptr) {
        const auto* call = reinterpret_cast<const CWPRETSTRUCT*>(lParam);
        if (call->message == WM_INITDIALOG && IsTopLevelDialog(call->hwnd)) {
            driver->m_initialised.push_back(call->hwnd);
        } else if ((call->message == WM_SHOWWINDOW && call->wParam != 0) ||
                   (call->message == WM_WINDOWPOSCHANGED &&
                    (reinterpret_cast<const WINDOWPOS*>(call->lParam)->flags & SWP_SHOWWINDOW))) {
            driver->OnShown(call->hwnd);
        }
    }
    return ::CallNextHookEx(driver != nullptr ? driver->m_hHook : nullptr, code, wParam, lParam);
}

// A dialog that was initialised is now shown: its script starts from the
// dialog's own loop.
void DialogDriver::OnShown(HWND hDialog)
{
    auto it = std::find(m_initialised.begin(), m_initialised.end(), hDialog);
    if (it == m_initialised.end())
        return;
    m_initialised.erase(it);
    ::PostMessageA(m_hWndDriver, kStartMessage, 0, reinterpret_cast<LPARAM>(hDialog));
}

void DialogDriver::RunScript(HWND hDialog)
{
    if (!::IsWindow(hDialog))
        return;
    const std::string caption = WindowText(hDialog);
    auto it = std::find_if(m_scripts.begin(), m_scripts.end(),
                           [&](const Entry& e) { return e.caption.empty() || e.caption == caption; });
    if (it == m_scripts.end())
        return;
    Entry entry = std::move(*it);
    m_scripts.erase(it);
    if (m_scripts.empty())
        ::KillTimer(m_hWndDriver, kWatchdogTimer);

    DialogHandle handle(hDialog);
    ++m_ran;
    entry.script(handle);
    if (handle.IsOpen()) {
        ++m_leftOpen;
        handle.End(IDCANCEL);
    }
}

void DialogDriver::OnWatchdog()
{
    std::vector<HWND> dialogs;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND hWnd, LPARAM lParam) -> BOOL {
            if (IsTopLevelDialog(hWnd) && ::IsWindowVisible(hWnd))
                reinterpret_cast<std::vector<HWND>*>(lParam)->push_back(hWnd);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&dialogs));
    // Nothing shown yet: keep waiting for the dialog.
    if (dialogs.empty())
        return;
    ::KillTimer(m_hWndDriver, kWatchdogTimer);
    m_timedOut = true;
    for (HWND hDialog : dialogs)
        DialogHandle(hDialog).End(IDCANCEL);
}

LRESULT CALLBACK DialogDriver::DriverWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    DialogDriver* driver = g_driver;
    if (driver != nullptr && hWnd == driver->m_hWndDriver) {
        switch (message) {
        case kStartMessage:
            driver->RunScript(reinterpret_cast<HWND>(lParam));
            return 0;
        case kMarkerMessage:
            driver->m_markerSeen = std::max(driver->m_markerSeen, static_cast<unsigned>(wParam));
            return 0;
        case WM_TIMER:
            if (wParam == kWatchdogTimer) {
                driver->OnWatchdog();
                return 0;
            }
            break;
        default:
            break;
        }
    }
    return ::DefWindowProcA(hWnd, message, wParam, lParam);
}
