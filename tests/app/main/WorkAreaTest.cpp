#include "app/WorkArea.h"

#include <gtest/gtest.h>

#include <ostream>

bool operator==(const RECT& a, const RECT& b) {
    return EqualRect(&a, &b) != FALSE;
}

void PrintTo(const RECT& rect, std::ostream* out) {
    *out << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom;
}

namespace {

struct Row {
    const char* what;
    RECT window;
    RECT fitted;
};

// Docked bars take a part of the screen on every side.
constexpr MONITORINFO Monitor = {sizeof(MONITORINFO), {0, 0, 1280, 1024}, {100, 50, 1100, 850}, 0};

constexpr Row Rows[] = {
    {"inside", {200, 100, 700, 500}, {200, 100, 700, 500}},
    {"exactly the work area", {100, 50, 1100, 850}, {100, 50, 1100, 850}},
    {"beyond the right", {900, 100, 1400, 500}, {600, 100, 1100, 500}},
    {"beyond the left", {0, 100, 500, 500}, {100, 100, 600, 500}},
    {"below the bottom", {200, 700, 700, 1100}, {200, 450, 700, 850}},
    {"above the top", {200, 0, 700, 400}, {200, 50, 700, 450}},
    {"beyond the right and the bottom", {1200, 900, 1700, 1300}, {600, 450, 1100, 850}},
    {"beyond the left and the top", {-900, -700, -400, -300}, {100, 50, 600, 450}},
    {"wider than the work area: the left edge wins", {200, 100, 1400, 500}, {100, 100, 1300, 500}},
    {"wider, and already left of it", {0, 100, 1400, 500}, {100, 100, 1500, 500}},
    {"higher than the work area: pushed up for its bottom, it stays above the top",
     {200, 100, 700, 1100},
     {200, -150, 700, 850}},
    {"higher, and above the top to begin with", {200, 0, 700, 1000}, {200, 50, 700, 1050}},
    {"as high as it, one below", {200, 51, 700, 851}, {200, 50, 700, 850}},
    {"too wide and too high", {0, 0, 2000, 2000}, {100, 50, 2100, 2050}},
};

TEST(WorkArea, MovesTheWindowInside) {
    for (const Row& row : Rows)
        EXPECT_EQ(FitToWorkArea(row.window, Monitor), row.fitted) << row.what;
}

}  // namespace
