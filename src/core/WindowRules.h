#pragma once

class QComboBox;
class QLineEdit;
class QWidget;

namespace lanzhou {

// Behaviour every window of the program shares.

// Keeps a window inside the screen it opens on: no larger than the space the desktop leaves, and
// moved back inside when it would stand out. Called when the window is first shown.
void FitIntoScreen(QWidget* window);

// Shows a window, raises it above the others and makes it the active one.
void BringForward(QWidget* window);

// An editable item box takes exactly what the operator types: no completion turns "scr" into
// "screw"; the items are picked from the box's list.
void TakeTypedTextAsIs(QComboBox* box);

// Holds a box to a number of characters. A character outside the basic plane counts once and is
// kept whole or left out whole; what goes beyond the limit is cut from the text just typed or pasted.
void LimitCharacters(QLineEdit* box, int characters);

// Cuts every signal and event filter from the window's controls to the window, so that nothing the
// controls do while they are destroyed (an item box that loses the focus reports a pick) reaches the window's
// handlers. Called first in the window's destructor.
void DetachHandlers(QWidget* window);

} // namespace lanzhou
