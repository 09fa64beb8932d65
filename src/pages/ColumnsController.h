// The page that selects and orders the columns of the list. A checked column is shown.
#pragma once

#include "pages/OrderController.h"

class ColumnsController : public OrderController {
public:
    explicit ColumnsController(MetaTypes::Settings* target);

protected:
    std::vector<OrderTree::Child> ReadFolders(const Preset& preset) const override;
    std::vector<OrderTree::Child> ReadFiles(const Preset& preset) const override;
    void Store(Preset& preset, std::span<const OrderTree::Child> folders,
               std::span<const OrderTree::Child> files) const override;

private:
    static const Controls PageControls;
};
