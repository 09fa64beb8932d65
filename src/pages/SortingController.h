// The page that sets priority and direction of the sort keys: a checked item sorts descending. No key can
// vanish.
#pragma once

#include "pages/OrderController.h"

class SortingController : public OrderController {
public:
    explicit SortingController(MetaTypes::Settings* target);

protected:
    std::vector<OrderTree::Child> ReadFolders(const Preset& preset) const override;
    std::vector<OrderTree::Child> ReadFiles(const Preset& preset) const override;
    void Store(Preset& preset, std::span<const OrderTree::Child> folders,
               std::span<const OrderTree::Child> files) const override;

private:
    static const Controls PageControls;
};
