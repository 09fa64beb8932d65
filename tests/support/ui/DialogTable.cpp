#include "support/ui/DialogTable.h"

#include <commctrl.h>

#include <utility>

#include "resources/resource.h"

namespace {

// The order of Tab goes through what is shown and has a stop; arrow keys stay within a group.
constexpr DWORD Shown = WS_CHILD | WS_VISIBLE;
constexpr DWORD Stop = Shown | WS_TABSTOP;

constexpr DWORD Frame = Shown | BS_GROUPBOX;
constexpr DWORD Check = Stop | BS_AUTOCHECKBOX;
// No stop of its own: the one that is ticked becomes it.
constexpr DWORD Radio = Shown | BS_AUTORADIOBUTTON;
constexpr DWORD Push = Stop | BS_PUSHBUTTON;
constexpr DWORD PictureButton = Stop | BS_ICON;
constexpr DWORD Text = Shown | WS_GROUP | SS_LEFT;
constexpr DWORD Centred = Shown | WS_GROUP | SS_CENTER;
constexpr DWORD Line = Shown | SS_ETCHEDHORZ;
// A path may be longer than its field.
constexpr DWORD Edit = Stop | WS_BORDER | ES_AUTOHSCROLL;
constexpr DWORD Choice = Stop | WS_VSCROLL | CBS_DROPDOWNLIST;
constexpr DWORD Tree = Stop | WS_BORDER | TVS_HASLINES | TVS_SHOWSELALWAYS;
constexpr DWORD Progress = WS_CHILD | WS_BORDER;

// All pages share one size, and Tab goes through their controls.
DialogRow Page(int id, std::vector<ControlRow> controls) {
    return {
        id, L"", 188, 144, DS_SHELLFONT | DS_CONTROL | WS_CHILD, WS_EX_CONTROLPARENT, std::move(controls)};
}

DialogRow SmallDialog(int id, const wchar_t* caption, int width, int height,
                      std::vector<ControlRow> controls) {
    return {id,
            caption,
            width,
            height,
            DS_SHELLFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU,
            0,
            std::move(controls)};
}

}  // namespace

const std::vector<DialogRow> Dialogs = {
    {IDD_MAIN,
     L"Tamblewick 4.0.1",
     345,
     201,
     DS_SHELLFONT | DS_CENTER | WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX,
     WS_EX_CONTROLPARENT,
     {{1002, L"Button", L"Create List...", Stop | BS_DEFPUSHBUTTON, {266, 174, 70, 16}},
      {1005, L"Button", L"Close", Push, {120, 174, 70, 16}},
      {1020, L"SysTreeView32", L"", Tree | TVS_LINESATROOT | TVS_TRACKSELECT, {6, 6, 108, 184}},
      {-1, L"Static", L"", Shown | SS_OWNERDRAW, {146, 40, 6, 88}},
      {1110, L"msctls_progress32", L"", Progress | PBS_MARQUEE, {204, 174, 49, 12}}}},
    {IDD_PROGRESS,
     L"###",
     303,
     85,
     DS_SHELLFONT | DS_CENTER | WS_POPUP | WS_CAPTION | WS_THICKFRAME,
     0,
     {{1119, L"Button", L"Cancel", Push, {132, 55, 70, 16}},
      {3, L"Button", L"Background", Push, {48, 55, 70, 16}},
      {1108, L"Static", L"###", Text, {6, 6, 252, 8}},
      // A path may hold an ampersand.
      {1109, L"Static", L"###", Shown | SS_LEFT | SS_NOPREFIX | SS_PATHELLIPSIS, {6, 18, 252, 8}},
      {1110, L"msctls_progress32", L"", Progress | WS_VISIBLE | PBS_MARQUEE, {24, 42, 180, 14}},
      {1107, L"msctls_progress32", L"", Progress | WS_VISIBLE, {12, 36, 180, 14}},
      {-1, L"Static", L"#116", Shown | SS_ICON, {270, 9, 20, 20}}}},
    Page(IDD_MANAGE,
         {{1091, L"Button", L"Instructions", Frame},
          {1093, L"Static",
           L"Create a New Preset:\n- Right-click the tree-view and select \"New\"\n- Right-click the "
           L"tree-view "
           L"and select \"New from Template\"\n- Select \"File -> New\" or \"File -> New from Template\"",
           Text},
          {1092, L"Static",
           L"Duplicate or Remove:\n- Right-click the tree view and select \"Duplicate\" or \"Remove\"\n- "
           L"Select "
           L"\"Edit -> Duplicate\" or \"Edit -> Remove\"",
           Text},
          {1094, L"Static", L"Rearrange Context Menu:\n- Rearrange order with drag and drop in the tree view",
           Text}}),
    Page(IDD_FORMAT,
         {{1090, L"Button", L"Format", Frame},
          {1095, L"Static", L"Choose an output format:", Text},
          {1045, L"Button", L"Plain text listing (*.txt)", Radio | WS_GROUP},
          {1044, L"Button", L"HTML-page listing (*.html)", Radio},
          {1074, L"Button", L"Support international characters (UTF-8 file output)", Check | WS_GROUP}}),
    Page(IDD_DISPLAY, {{1096, L"Button", L"Display", Frame},
                       {1060, L"Button", L"Perform listing of subfolders", Check},
                       {1013, L"Button", L"List hidden folders and files", Check},
                       {1012, L"Button", L"Group items beneath their parent folder", Check},
                       {1097, L"Static", L"Amount of indent for each path depth:", Text},
                       {1059, L"Static", L"0", Text},
                       {1057, L"msctls_trackbar32", L"", Stop | TBS_HORZ | TBS_BOTH | TBS_NOTICKS},
                       {1075, L"Static", L"Size representation:", Text},
                       {1076, L"ComboBox", L"", Choice},
                       {1010, L"Button", L"Display statistics on top of the list", Check}}),
    Page(IDD_FILTER, {{1098, L"Button", L"Filter", Frame},
                      {1067, L"Static", L"Select filetypes to list:", Text},
                      {1011, L"ComboBox", L"", Choice},
                      {1066, L"Static", L"Filter:", WS_CHILD | SS_LEFT},
                      {1012, L"Edit", L"", Edit},
                      {1099, L"Static", L"Multiple patterns should be separated by ':'.", Text},
                      {-1, L"Static", L"Excluded folders:", Text},
                      {1112, L"SysListView32", L"",
                       Stop | WS_BORDER | LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL | LVS_EDITLABELS},
                      {1032, L"Button", L"Add...", Push},
                      {1033, L"Button", L"Remove", Push}}),
    Page(IDD_COLUMNS, {{1103, L"Button", L"Columns", Frame},
                       {1106, L"Static", L"Check and arrange the columns to show in the list:", Text},
                       {1065, L"SysTreeView32", L"", Tree | TVS_HASBUTTONS},
                       {1061, L"Button", L"", PictureButton},
                       {1062, L"Button", L"", PictureButton},
                       {1073, L"Button", L"Display column headers on top of list", Check}}),
    Page(IDD_SORTING, {{1104, L"Button", L"Sorting", Frame},
                       {1105, L"Static", L"Sorting critera by priority, up arrow is ascending:", Text},
                       {1070, L"SysTreeView32", L"", Tree | TVS_HASBUTTONS},
                       {1061, L"Button", L"", PictureButton},
                       {1062, L"Button", L"", PictureButton},
                       {1047, L"Button", L"Enable natural sorting of digits as numbers", Check}}),
    Page(IDD_SAVING, {{1101, L"Button", L"Saving", Frame},
                      {1026, L"Button", L"Save list in a temporary folder", Radio | WS_GROUP},
                      {1027, L"Button", L"Save to the folder from which the list was created", Radio},
                      {1029, L"Button", L"Save list in a custom defined folder...", Radio},
                      {1030, L"Edit", L"", Edit | WS_GROUP},
                      {1031, L"Button", L"Browse...", Push},
                      {1038, L"Button", L"Overwrite older lists with the same filename", Check}}),
    Page(IDD_OPENING, {{1102, L"Button", L"Opening", Frame},
                       {1027, L"Button", L"Open list with its associated program", Radio | WS_GROUP},
                       {1028, L"Button", L"Do not open the list", Radio},
                       {1029, L"Button", L"Open list with a custom defined program...", Radio},
                       {1030, L"Edit", L"", Edit | WS_GROUP},
                       {1031, L"Button", L"Browse...", Push}}),
    SmallDialog(IDD_OPTIONS, L"Options", 243, 89,
                {{1040, L"Button", L"Ask for confirmation on program exit", Check},
                 {1010, L"Button", L"Integrate into folder context menus", Check},
                 {1011, L"Button", L"Store application settings in %APPDATA% folder",
                  WS_CHILD | WS_TABSTOP | WS_DISABLED | BS_AUTOCHECKBOX},
                 {1122, L"Static", L"", Line},
                 {1121, L"Button", L"Close", Push}}),
    SmallDialog(IDD_ABOUT, L"About", 219, 149,
                {{1021, L"Static", L"#116", Shown | SS_ICON},
                 {1033, L"Static", L"Tamblewick 4.0.1", Centred},
                 {1088, L"Static", L"Programmed by Ostrel Vane", Centred},
                 {1086, L"Static", L"E-mail:", Centred},
                 {1034, L"Static", L"ostrel.vane@tamblewick.example", Centred},
                 {1085, L"Static", L"Copyright \x00A9 2026 Ostrel Vane", Centred},
                 {1087, L"Static", L"Homepage:", Centred},
                 {1035, L"Static", L"https://www.tamblewick.example/", Centred},
                 {-1, L"Static", L"", Line},
                 {1032, L"Button", L"Close", Push}}),
};
