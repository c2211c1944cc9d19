// SPDX-FileCopyrightText: 2026 The CoreAlgorithms developers
// SPDX-License-Identifier: MIT
// Observes an implant that is changed alone and in an editing bracket, and is destroyed.
#include <CoreAlgorithms/model/dataobjects/Implant3D.h>

#include <QMatrix4x4>

#include <iostream>
#include <memory>

namespace {

// [Observable]
class View : public patterns::Observer<DataObject, std::nullptr_t>
{
public:
    void changedEvent(DataObject* /*subject*/) override { ++redraws; }
    void destroyed(DataObject* /*subject*/) override { isOpen = false; }

    int redraws = 0;
    bool isOpen = true;
};
// [Observable]

} // namespace

int main()
{
    auto implant = std::make_shared<dataobject::Implant3D>();
    const QMatrix4x4 placement;

    // [Observable]
    View view;
    implant->attach(&view);
    implant->setDimensions({4.0F, 10.0F}); // notifies the view
    {
        // The two changes notify the view once, at the end of the scope.
        const EditLocker lock(implant.get());
        implant->setDimensions({4.0F, 12.0F});
        implant->setObjectTransform(placement);
    }
    implant.reset(); // calls destroyed() and detaches the view
    // [Observable]

    std::cout << "The view was redrawn " << view.redraws << " times and is "
              << (view.isOpen ? "open" : "closed") << ".\n";
    return view.redraws == 2 && !view.isOpen && view.getNumObservables() == 0 ? 0 : 1;
}
