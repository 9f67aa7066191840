#pragma once

#include <vector>

#include "BarcodeLib/abstract_barcode_element.h"

namespace BarcodeVelko {

// A node that owns its children, in order.
class AbstractBarcodeComposite : public AbstractBarcodeElement {
public:
    AbstractBarcodeComposite() = default;
    AbstractBarcodeComposite(const AbstractBarcodeComposite&) = delete;
    AbstractBarcodeComposite& operator=(const AbstractBarcodeComposite&) = delete;
    ~AbstractBarcodeComposite() override;

    void add(AbstractBarcodeElement* child) override;
    void visit(AbstractBarcodeVisitor* visitor) override;

protected:
    std::vector<AbstractBarcodeElement*> children;
};

}  // namespace BarcodeVelko
