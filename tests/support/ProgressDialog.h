// What of the progress dialog differs between the real one and the stand-in's.
#pragma once

// Makes the template known where it is not in the program's resources.
void DefineProgressDialog();

// How many dialogs a test can afford that opens very many: a real one takes up to 80 ms.
extern const int ManyDialogs;
