// The page that says with what a finished list is opened.
#pragma once

#include "pages/PathChoice.h"
#include "pages/PropertyController.h"

class OpeningController : public PropertyController {
public:
    explicit OpeningController(MetaTypes::Settings* target);

    void Refresh() override;

protected:
    void BuildLayout() override;
    void UpdateControls() override;
    bool OnClicked(WORD id) override;

private:
    PathChoice Choice() const;
};
