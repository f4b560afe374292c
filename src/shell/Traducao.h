#pragma once

// Qt's own windows (print, file and input dialogs, the preview's tool bar) speak the
// shop's language: the Brazilian Portuguese catalogues that Debian ships with Qt.
namespace Traducao {
// Installs the catalogues in the running application; false when none was found (the
// windows then stay in English, and nothing else changes).
bool instalar();
}
