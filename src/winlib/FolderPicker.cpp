#include "winlib/FolderPicker.h"
