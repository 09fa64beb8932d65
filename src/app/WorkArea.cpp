#include "app/WorkArea.h"

RECT FitToWorkArea(const RECT& window, const MONITORINFO& monitor) {
    const RECT& workArea = monitor.rcWork;
    RECT fitted = window;
    if (window.right > workArea.right)
        OffsetRect(&fitted, workArea.right - fitted.right, 0);
    if (fitted.left < workArea.left)
        OffsetRect(&fitted, workArea.left - fitted.left, 0);
    if (fitted.bottom > workArea.bottom)
        OffsetRect(&fitted, 0, workArea.bottom - fitted.bottom);
    if (window.top < workArea.top)
        OffsetRect(&fitted, 0, workArea.top - fitted.top);
    return fitted;
}
