// Recording window procedures for message order tests.
#include "support/message_recorder.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace vorlan_test {

namespace {

// One recorder per class; the procedure finds it through this list.
std::vector<std::pair<ATOM, MessageRecorder *>> &Recorders()
{
    static std::vector<std::pair<ATOM, MessageRecorder *>> recorders;
    return recorders;
}

MessageRecorder *RecorderOf(HWND hwnd)
{
    const ATOM atom = static_cast<ATOM>(GetClassLongW(hwnd, GCW_ATOM));
    for (auto &entry : Recorders()) {
        if (entry.first == atom)
            return entry.second;
    }
    return nullptr;
}

} // namespace

MessageRecorder::MessageRecorder(const char *className, bool wide, UINT classStyle)
    : m_className(className), m_wideName(m_className.begin(), m_className.end()), m_wide(wide)
{
    ATOM atom;
    if (wide) {
        WNDCLASSW wc = {};
        wc.style = classStyle;
        wc.lpfnWndProc = ProcedureW;
        wc.lpszClassName = wideClassName();
        atom = RegisterClassW(&wc);
    } else {
        WNDCLASSA wc = {};
        wc.style = classStyle;
        wc.lpfnWndProc = ProcedureA;
        wc.lpszClassName = className;
        atom = RegisterClassA(&wc);
    }
    Recorders().push_back({atom, this});
}

MessageRecorder::~MessageRecorder()
{
    // Windows of the class that the test left behind go first.
    const ATOM atom = static_cast<ATOM>(FindAtomA(m_className.c_str()));
    for (HWND hwnd : m_created) {
        if (IsWindow(hwnd) && static_cast<ATOM>(GetClassLongW(hwnd, GCW_ATOM)) == atom)
            DestroyWindow(hwnd);
    }
    UnregisterClassA(m_className.c_str(), nullptr);
    auto &all = Recorders();
    all.erase(std::remove_if(all.begin(), all.end(), [&](const auto &e) { return e.second == this; }), all.end());
}

HWND MessageRecorder::Create(DWORD style, int x, int y, int cx, int cy, HWND parent, DWORD exStyle, UINT_PTR id,
                             const char16_t *title)
{
    const HWND hwnd = CreateWindowExW(exStyle, wideClassName(), reinterpret_cast<LPCWSTR>(title), style, x, y, cx,
                                      cy, parent, reinterpret_cast<HMENU>(id), nullptr, nullptr);
    if (hwnd != nullptr)
        m_created.push_back(hwnd);
    return hwnd;
}

void MessageRecorder::Answer(UINT message, std::function<LRESULT(HWND, WPARAM, LPARAM)> handler)
{
    m_handlers[message] = std::move(handler);
}

LRESULT MessageRecorder::Handle(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, bool wide)
{
    m_messages.push_back({hwnd, message, wParam, lParam});
    auto handler = m_handlers.find(message);
    if (handler != m_handlers.end())
        return handler->second(hwnd, wParam, lParam);
    return wide ? DefWindowProcW(hwnd, message, wParam, lParam) : DefWindowProcA(hwnd, message, wParam, lParam);
}

LRESULT CALLBACK MessageRecorder::ProcedureW(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    MessageRecorder *recorder = RecorderOf(hwnd);
    return recorder != nullptr ? recorder->Handle(hwnd, message, wParam, lParam, true)
                               : DefWindowProcW(hwnd, message, wParam, lParam);
}

LRESULT CALLBACK MessageRecorder::ProcedureA(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    MessageRecorder *recorder = RecorderOf(hwnd);
    return recorder != nullptr ? recorder->Handle(hwnd, message, wParam, lParam, false)
                               : DefWindowProcA(hwnd, message, wParam, lParam);
}

std::vector<std::string> MessageRecorder::Sequence(const std::vector<HWND> &windows,
                                                   const std::vector<UINT> &kinds) const
{
    std::vector<std::string> sequence;
    for (const RecordedMessage &m : m_messages) {
        if (!kinds.empty() && std::find(kinds.begin(), kinds.end(), m.message) == kinds.end())
            continue;
        auto it = std::find(windows.begin(), windows.end(), m.hwnd);
        const std::string who = it != windows.end() ? std::to_string(it - windows.begin()) : "?";
        sequence.push_back(who + ":" + MessageName(m.message));
    }
    return sequence;
}

std::vector<RecordedMessage> MessageRecorder::Of(HWND hwnd, UINT message) const
{
    std::vector<RecordedMessage> result;
    for (const RecordedMessage &m : m_messages) {
        if (m.hwnd == hwnd && m.message == message)
            result.push_back(m);
    }
    return result;
}

std::string MessageName(UINT message)
{
    static const std::map<UINT, const char *> names = {
        {WM_NCCREATE, "NCCREATE"}, {WM_NCCALCSIZE, "NCCALCSIZE"}, {WM_CREATE, "CREATE"}, {WM_SIZE, "SIZE"},
        {WM_MOVE, "MOVE"}, {WM_PARENTNOTIFY, "PARENTNOTIFY"}, {WM_SHOWWINDOW, "SHOWWINDOW"},
        {WM_DESTROY, "DESTROY"}, {WM_NCDESTROY, "NCDESTROY"}, {WM_WINDOWPOSCHANGING, "POSCHANGING"},
        {WM_WINDOWPOSCHANGED, "POSCHANGED"}, {WM_GETMINMAXINFO, "GETMINMAXINFO"}, {WM_SETTEXT, "SETTEXT"},
        {WM_GETTEXT, "GETTEXT"}, {WM_GETTEXTLENGTH, "GETTEXTLENGTH"}, {WM_CLOSE, "CLOSE"},
        {WM_CONTEXTMENU, "CONTEXTMENU"}, {WM_HELP, "HELP"}, {WM_PAINT, "PAINT"}, {WM_NCPAINT, "NCPAINT"},
        {WM_ERASEBKGND, "ERASEBKGND"}, {WM_ENTERSIZEMOVE, "ENTERSIZEMOVE"}, {WM_EXITSIZEMOVE, "EXITSIZEMOVE"},
    };
    const auto known = names.find(message);
    if (known != names.end())
        return known->second;
    char text[16];
    std::snprintf(text, sizeof text, "0x%04x", message);
    return text;
}

} // namespace vorlan_test
