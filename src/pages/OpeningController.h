// The page that selects the program that opens a finished list.
#pragma once

#include "pages/PathChoice.h"
#include "pages/PropertyController.h"

class OpeningController : public PropertyController {
public:
    explicit OpeningController(MetaTypes::Settings* target);

    void Refresh() override;

protected:
    void BuildLayout(WinLib::Layout::VStack& page) override;
    void UpdateControls() override;
    bool OnClicked(WORD id) override;

private:
    PathChoice Choice() const;
};
