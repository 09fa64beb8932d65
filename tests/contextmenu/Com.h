// Owners of references to COM objects.
#pragma once

#include <memory>

#include "winlib/Windows.h"

#include <unknwn.h>

struct Releaser {
    void operator()(IUnknown* object) const { object->Release(); }
};

template <typename Interface>
using Com = std::unique_ptr<Interface, Releaser>;
