// The page of a preset's own tree item: text or HTML, and whether the list is marked as UTF-8.
#pragma once

#include "pages/PropertyController.h"

class FormatController : public PropertyController {
public:
    explicit FormatController(MetaTypes::Settings* target);

    void Refresh() override;

protected:
    void BuildLayout(WinLib::Layout::VStack& page) override;
};
