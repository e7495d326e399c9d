// A window class whose procedure records every message it gets, in order,
// for every window of the class, and otherwise passes it to the default
// procedure.  A test can change the answer to one message or run code
// when it arrives.
#ifndef VORLAN_TESTS_SUPPORT_MESSAGE_RECORDER_H
#define VORLAN_TESTS_SUPPORT_MESSAGE_RECORDER_H

#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace vorlan_test {

struct RecordedMessage {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

class MessageRecorder {
public:
    // Registers a wide class of the given name (or an ANSI one).
    explicit MessageRecorder(const char *className, bool wide = true, UINT classStyle = 0);
    ~MessageRecorder();
    MessageRecorder(const MessageRecorder &) = delete;
    MessageRecorder &operator=(const MessageRecorder &) = delete;

    const char *className() const { return m_className.c_str(); }
    LPCWSTR wideClassName() const { return reinterpret_cast<LPCWSTR>(m_wideName.c_str()); }

    // A window of the class, through CreateWindowExW.
    HWND Create(DWORD style, int x, int y, int cx, int cy, HWND parent = nullptr, DWORD exStyle = 0,
                UINT_PTR id = 0, const char16_t *title = u"");

    // When `message` arrives, `handler` runs instead of the default
    // procedure and its value is the answer.
    void Answer(UINT message, std::function<LRESULT(HWND, WPARAM, LPARAM)> handler);

    const std::vector<RecordedMessage> &messages() const { return m_messages; }
    void Clear() { m_messages.clear(); }
    // The messages, of the listed kinds only (all when empty), as
    // "hwnd-index:NAME" strings: windows are numbered in the order given.
    std::vector<std::string> Sequence(const std::vector<HWND> &windows, const std::vector<UINT> &kinds = {}) const;
    // The recorded messages of one kind for one window.
    std::vector<RecordedMessage> Of(HWND hwnd, UINT message) const;
    bool Saw(HWND hwnd, UINT message) const { return !Of(hwnd, message).empty(); }

private:
    static LRESULT CALLBACK ProcedureW(HWND, UINT, WPARAM, LPARAM);
    static LRESULT CALLBACK ProcedureA(HWND, UINT, WPARAM, LPARAM);
    LRESULT Handle(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, bool wide);

    std::string m_className;
    std::u16string m_wideName;
    bool m_wide;
    std::vector<RecordedMessage> m_messages;
    std::vector<HWND> m_created;
    std::map<UINT, std::function<LRESULT(HWND, WPARAM, LPARAM)>> m_handlers;
};

// The name of a message, for readable sequences.
std::string MessageName(UINT message);

} // namespace vorlan_test

#endif // VORLAN_TESTS_SUPPORT_MESSAGE_RECORDER_H
