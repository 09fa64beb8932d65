#include "support/ProgressDialog.h"

void DefineProgressDialog() {}

const int ManyDialogs = 200;
