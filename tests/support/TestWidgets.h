#pragma once

#include <QString>

class QWidget;

namespace lanzhou::test {

// Types text into a field key by key, as a keyboard (or an input method, for Chinese) would;
// a character outside the basic plane arrives as one key.
void typeText(QWidget* field, const QString& text);
// Saves a picture of the window into LANZHOU_SCREENSHOT_DIR when that is set (for the README).
void saveScreenshot(QWidget* window, const QString& fileName);

} // namespace lanzhou::test
