// The stand-in's small world of windows: dialogs from templates that a test declares, controls that keep
// text, place and state, message queues for each thread, message boxes that a test answers. A message sent to
// a window of another thread is served by that thread, as on Windows: while it waits for a message, peeks at
// its queue, or itself waits for the answer to a sent message.
//
// A test drives a modal dialog from its own thread by OnDialogShown, or from another with WaitForDialog.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <windows.h>

namespace FakeWin {

// ---- Templates

struct ControlTemplate {
    int id;
    std::wstring className;  // "BUTTON", "STATIC", "msctls_progress32", ...
    std::wstring text;
    RECT rect;  // in pixels, in client coordinates of the dialog
    DWORD style = WS_CHILD | WS_VISIBLE;
    DWORD exStyle = 0;
};

struct DialogTemplate {
    std::wstring caption;
    SIZE size;  // of the client area, in pixels
    DWORD style = WS_POPUP | WS_CAPTION;
    DWORD exStyle = 0;
    std::vector<ControlTemplate> controls;  // the topmost first
};

// Makes the template known to DialogBoxParamW and CreateDialogParamW.
void DefineDialog(int templateId, DialogTemplate dialog);

// From now on the template does not exist.
void UndefineDialog(int templateId);

// ---- Windows

// A visible top-level window of the calling thread that takes messages and does nothing with them.
HWND CreatePlainWindow(const std::wstring& title = L"", RECT rect = {0, 0, 640, 480});

// The same with a procedure of its own, and as the child of another one with a class and an id.
HWND CreatePlainWindow(WNDPROC procedure);
HWND CreateChildWindow(HWND parent, int id, const std::wstring& className, RECT rect);

// The rectangle of the desktop window; at first 0, 0, 1024, 768. Without one GetDesktopWindow is null.
void SetDesktop(RECT rect);
void RemoveDesktop();

// How many windows exist, the desktop not counted.
int OpenWindows();

// How often MoveWindow or SetWindowPos has been called on this window.
int Moves(HWND window);

// A message as a window received it.
struct Message {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    std::thread::id sender;
};

// All that was posted to this window, taken from the queue or not; also after its destruction.
std::vector<Message> PostedTo(HWND window);

// What reached a system control's own procedure in the ranges BM_, STM_ and from WM_USER up.
std::vector<Message> ControlMessages(HWND control);

// Waits until the window has been posted this message so many times; false after ten seconds.
bool WaitForPosted(HWND window, UINT message, int count = 1);

// An icon from the program's resources, and the one that a window has been given as ICON_BIG or ICON_SMALL,
// if it still exists.
struct Icon {
    int id;
    int width;
    int height;
};
std::optional<Icon> IconOf(HWND window, WPARAM kind);

// ---- Driving dialogs

// Runs on the dialog's thread each time that a dialog of this template has been made, directly after
// WM_INITDIALOG and showing, before its loop takes the first message.
void OnDialogShown(int templateId, std::function<void(HWND)> callback);

// The dialog of this template that is in its loop; waits for it, null after ten seconds. From another thread.
HWND WaitForDialog(int templateId);

// Waits until the window is destroyed; false after ten seconds. From another thread.
bool WaitForDestroyed(HWND window);

// As a user's click on a button: nothing if the button is disabled or gone, otherwise WM_COMMAND with
// BN_CLICKED is sent. From any thread. True if it was sent.
bool Click(HWND dialog, int id);

// As a key pressed in a dialog, for example VK_RETURN: posted to its queue.
void PressKey(HWND dialog, WPARAM key);

// ---- Message boxes

struct MessageBoxCall {
    HWND owner;
    std::wstring text;
    std::wstring caption;
    UINT type;
    bool ownerExisted;
    std::thread::id thread;
};

// All that were shown, the ones still open included.
std::vector<MessageBoxCall> MessageBoxes();

// What each box returns at once; at first IDOK.
void AnswerMessageBoxes(int answer);

// What MessageBoxW returns when it fails; at first 0, as on Windows. On Wine it is -1 if the owner is
// destroyed while the box is being created.
void SetMessageBoxFailure(int result);

// Runs on the thread that shows the box while it is up; its result is the answer.
void OnMessageBox(std::function<int(const MessageBoxCall&)> user);

// From now on a box stays up until ReleaseMessageBox is called, which answers the oldest one that is up.
void HoldMessageBoxes();
void ReleaseMessageBox(int answer = IDOK);

// Waits until so many boxes have been shown since the last Reset; false after ten seconds.
bool WaitForMessageBox(int count = 1);

}  // namespace FakeWin
