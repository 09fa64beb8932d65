// Windows, dialogs and messages.
#pragma once

#include <windef.h>

typedef LRESULT(CALLBACK* WNDPROC)(HWND, UINT, WPARAM, LPARAM);
typedef INT_PTR(CALLBACK* DLGPROC)(HWND, UINT, WPARAM, LPARAM);

#define MAKEINTRESOURCEW(id) (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))

// Messages

#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_MOVE 0x0003
#define WM_SIZE 0x0005
#define WM_ACTIVATE 0x0006
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_ENABLE 0x000A
#define WM_SETREDRAW 0x000B
#define WM_SETTEXT 0x000C
#define WM_GETTEXT 0x000D
#define WM_GETTEXTLENGTH 0x000E
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_ERASEBKGND 0x0014
#define WM_SYSCOLORCHANGE 0x0015
#define WM_SHOWWINDOW 0x0018
#define WM_CANCELMODE 0x001F
#define WM_SETCURSOR 0x0020
#define WM_GETMINMAXINFO 0x0024
#define WM_NEXTDLGCTL 0x0028
#define WM_SETFONT 0x0030
#define WM_GETFONT 0x0031
#define WM_WINDOWPOSCHANGING 0x0046
#define WM_WINDOWPOSCHANGED 0x0047
#define WM_NOTIFY 0x004E
#define WM_DISPLAYCHANGE 0x007E
#define WM_GETICON 0x007F
#define WM_SETICON 0x0080
#define WM_NCCREATE 0x0081
#define WM_NCDESTROY 0x0082
#define WM_GETDLGCODE 0x0087
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_SYSKEYDOWN 0x0104
#define WM_INITDIALOG 0x0110
#define WM_COMMAND 0x0111
#define WM_SYSCOMMAND 0x0112
#define WM_TIMER 0x0113
#define WM_HSCROLL 0x0114
#define WM_VSCROLL 0x0115
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_SIZING 0x0214
#define WM_CAPTURECHANGED 0x0215
#define WM_USER 0x0400
#define WM_APP 0x8000

#define SIZE_RESTORED 0
#define SIZE_MINIMIZED 1
#define SIZE_MAXIMIZED 2

#define BN_CLICKED 0
#define BM_CLICK 0x00F5
#define BM_GETCHECK 0x00F0
#define BM_SETCHECK 0x00F1

#define DLGC_WANTALLKEYS 0x0004

#define VK_TAB 0x09
#define VK_RETURN 0x0D
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20

#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};
typedef MSG* LPMSG;

#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001
#define PM_NOYIELD 0x0002
#define QS_POSTMESSAGE 0x0008
#define QS_SENDMESSAGE 0x0040
#define PM_QS_SENDMESSAGE (QS_SENDMESSAGE << 16)

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last);
BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
BOOL WINAPI TranslateMessage(const MSG* message);
LRESULT WINAPI DispatchMessageW(const MSG* message);
BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message);
int WINAPI TranslateAcceleratorW(HWND window, HACCEL table, LPMSG message);
void WINAPI PostQuitMessage(int exitCode);
LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Dialogs

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDCLOSE 8

HWND WINAPI CreateDialogParamW(HINSTANCE instance, LPCWSTR templateName, HWND owner, DLGPROC procedure,
                               LPARAM parameter);
INT_PTR WINAPI DialogBoxParamW(HINSTANCE instance, LPCWSTR templateName, HWND owner, DLGPROC procedure,
                               LPARAM parameter);
BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
// Top-level windows of this program alone, the names in their own case.
HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR title);
HWND WINAPI GetDlgItem(HWND dialog, int id);
int WINAPI GetDlgCtrlID(HWND window);

#define MB_OK 0x0
#define MB_OKCANCEL 0x1
#define MB_YESNO 0x4
#define MB_ICONERROR 0x10
#define MB_ICONHAND 0x10
#define MB_ICONQUESTION 0x20
#define MB_ICONEXCLAMATION 0x30
#define MB_ICONWARNING 0x30
#define MB_ICONINFORMATION 0x40

int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

// Windows

#define WS_OVERLAPPED 0x00000000
#define WS_MAXIMIZEBOX 0x00010000
#define WS_TABSTOP 0x00010000
#define WS_MINIMIZEBOX 0x00020000
#define WS_GROUP 0x00020000
#define WS_THICKFRAME 0x00040000
#define WS_SYSMENU 0x00080000
#define WS_DLGFRAME 0x00400000
#define WS_BORDER 0x00800000
#define WS_CAPTION 0x00C00000
#define WS_MAXIMIZE 0x01000000
#define WS_CLIPCHILDREN 0x02000000
#define WS_CLIPSIBLINGS 0x04000000
#define WS_DISABLED 0x08000000
#define WS_VISIBLE 0x10000000
#define WS_MINIMIZE 0x20000000
#define WS_CHILD 0x40000000
#define WS_POPUP 0x80000000
#define WS_EX_DLGMODALFRAME 0x00000001
#define WS_EX_CONTROLPARENT 0x00010000
#define WS_EX_CLIENTEDGE 0x00000200
#define DS_MODALFRAME 0x80
#define DS_CENTER 0x0800

#define GWLP_WNDPROC (-4)
#define GWLP_HINSTANCE (-6)
#define GWLP_HWNDPARENT (-8)
#define GWLP_ID (-12)
#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GWLP_USERDATA (-21)
#define DWLP_MSGRESULT 0
#define DWLP_DLGPROC 8
#define DWLP_USER 16

#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOWMINIMIZED 2
#define SW_SHOWMAXIMIZED 3
#define SW_SHOW 5
#define SW_SHOWDEFAULT 10

#define SWP_NOSIZE 0x0001
#define SWP_NOMOVE 0x0002
#define SWP_NOZORDER 0x0004
#define SWP_NOREDRAW 0x0008
#define SWP_NOACTIVATE 0x0010
#define SWP_FRAMECHANGED 0x0020
#define SWP_SHOWWINDOW 0x0040
#define SWP_HIDEWINDOW 0x0080

struct MINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
};
typedef MINMAXINFO* LPMINMAXINFO;

struct CREATESTRUCTW {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};
typedef CREATESTRUCTW* LPCREATESTRUCTW;

struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};
typedef NMHDR* LPNMHDR;

LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
LONG WINAPI GetWindowLongW(HWND window, int index);
LONG WINAPI SetWindowLongW(HWND window, int index, LONG value);
BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text);
int WINAPI GetWindowTextW(HWND window, LPWSTR buffer, int size);
int WINAPI GetWindowTextLengthW(HWND window);
BOOL WINAPI EnableWindow(HWND window, BOOL enable);
HWND WINAPI GetFocus(void);
BOOL WINAPI IsWindowEnabled(HWND window);
BOOL WINAPI ShowWindow(HWND window, int command);
BOOL WINAPI IsWindowVisible(HWND window);
BOOL WINAPI IsWindow(HWND window);
BOOL WINAPI DestroyWindow(HWND window);
HWND WINAPI GetParent(HWND window);
HWND WINAPI GetDesktopWindow();
DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD processId);
BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle);

#define RDW_INVALIDATE 0x0001
#define RDW_ERASE 0x0004
#define RDW_ALLCHILDREN 0x0080

BOOL WINAPI RedrawWindow(HWND window, const RECT* update, HANDLE region, UINT flags);
BOOL WINAPI EqualRect(const RECT* first, const RECT* second);

// Icons

#define IMAGE_BITMAP 0
#define IMAGE_ICON 1
#define ICON_SMALL 0
#define ICON_BIG 1
#define SM_CXICON 11
#define SM_CYICON 12
#define SM_CXSMICON 49
#define SM_CYSMICON 50
#define STM_SETICON 0x0170
#define STM_SETIMAGE 0x0172

HANDLE WINAPI LoadImageW(HINSTANCE instance, LPCWSTR name, UINT type, int width, int height, UINT flags);
BOOL WINAPI DestroyIcon(HICON icon);

// Declared for the owners of handles that only Windows programs have.
BOOL WINAPI DestroyMenu(HMENU menu);
BOOL WINAPI DestroyAcceleratorTable(HACCEL table);
BOOL WINAPI DeleteObject(HGDIOBJ object);

int WINAPI GetSystemMetrics(int index);
