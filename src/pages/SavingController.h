// The page that selects where a list is saved and whether it replaces an older one.
#pragma once

#include "pages/PathChoice.h"
#include "pages/PropertyController.h"

class SavingController : public PropertyController {
public:
    explicit SavingController(MetaTypes::Settings* target);

    void Refresh() override;

protected:
    void BuildLayout(WinLib::Layout::VStack& page) override;
    void UpdateControls() override;
    bool OnClicked(WORD id) override;

private:
    PathChoice Choice() const;
};
