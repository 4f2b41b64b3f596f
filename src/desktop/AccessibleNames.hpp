#pragma once

class QWidget;

namespace pendulon {

// Gives every input field below root the text of its labels as its accessible name, so that
// screen readers and GUI tests find it as a person reads it: the label of its row and the
// heading of its column ("CLKA Desired (MHz)", "CPLL[0] PLL Data"), else the title of its
// group. A check box or option button with a caption of its own keeps that caption. Run again
// when captions or the layout change.
void NameFieldsFromLabels(QWidget* root);

// Makes option buttons known to screen readers as option buttons. The binder leaves their
// grouping to the model (they are not exclusive to Qt), which Qt would report as check boxes.
// Safe to call more than once.
void InstallOptionButtonAccessibility();

}  // namespace pendulon
