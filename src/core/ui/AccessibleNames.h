#pragma once

class QWidget;

namespace tally {

/// Tells a screen reader the names of the controls of `form` that take the keyboard: the words of the label
/// whose letter leads to the control, else the title of the frame around it. A name that a control has
/// already stays.
void NameControls(QWidget* form);

} // namespace tally
