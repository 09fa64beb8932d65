// The page that sets the priority and direction of the sort keys. A checked key sorts descending. Keys cannot
// be removed.
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
