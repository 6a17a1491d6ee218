#pragma once

class QCoreApplication;

namespace lanzhou {

// Loads Qt's own Chinese texts (standard buttons 是/否/确定/取消, context menus) into the application.
// False when the translation is not installed; the program then runs with Qt's English texts.
bool LoadQtChineseTranslation(QCoreApplication* app);

} // namespace lanzhou
