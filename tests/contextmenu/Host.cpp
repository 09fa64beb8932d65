// A host that ends as soon as it has chosen the first preset for the folders of its command line. Exit
// code 7.

#include <string>
#include <vector>

#include "contextmenu/LoadedModule.h"

int wmain(int count, wchar_t** arguments) {
    const LoadedModule module;
    const Com<IContextMenu> handler =
        module.NewHandler(std::vector<std::wstring>(arguments + 1, arguments + count));
    if (FAILED(QueryMenu(*handler)) || FAILED(Invoke(*handler, 0)))
        return 1;
    return 7;
}
