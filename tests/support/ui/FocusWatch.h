// Notes how a control loses the focus while the object lives: which window gets it, and whether the control
// was visible and enabled at that moment.
#pragma once

#include <ostream>
#include <vector>

#include "winlib/Windows.h"

#include <commctrl.h>

namespace Ui {

struct FocusLoss {
    HWND to;
    bool visible;
    bool enabled;

    bool operator==(const FocusLoss&) const = default;
};
using FocusLosses = std::vector<FocusLoss>;

inline void PrintTo(const FocusLoss& loss, std::ostream* out) {
    *out << "to " << loss.to << (loss.visible ? ", visible" : ", hidden")
         << (loss.enabled ? ", enabled" : ", disabled");
}

class FocusWatch {
public:
    explicit FocusWatch(HWND control) : control_(control) {
        SetWindowSubclass(control_, Procedure, 1, reinterpret_cast<DWORD_PTR>(&lost_));
    }
    FocusWatch(const FocusWatch&) = delete;
    FocusWatch& operator=(const FocusWatch&) = delete;
    ~FocusWatch() { RemoveWindowSubclass(control_, Procedure, 1); }

    const FocusLosses& Lost() const { return lost_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR lost) {
        if (message == WM_KILLFOCUS)
            reinterpret_cast<FocusLosses*>(lost)->push_back({reinterpret_cast<HWND>(wParam),
                                                             IsWindowVisible(window) != FALSE,
                                                             IsWindowEnabled(window) != FALSE});
        return DefSubclassProc(window, message, wParam, lParam);
    }

    const HWND control_;
    FocusLosses lost_;
};

}  // namespace Ui
