#include "views/main/ConfigurationNeededView.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {
// The settings shortcut is Command+, on macOS and Ctrl+, elsewhere.
#ifdef Q_OS_MACOS
constexpr QStringView kSettingsKey = u"Cmd+,";
#else
constexpr QStringView kSettingsKey = u"Ctrl+,";
#endif
} // namespace

ConfigurationNeededView::ConfigurationNeededView(QWidget* parent)
    : PlaceholderView(
          symbol(u"folder.badge.gearshape"_s), u"Configuratie vereist"_s,
          u"Configureer een dossier met API key in Instellingen (%1)"_s.arg(kSettingsKey), parent)
{
    detail()->setObjectName(u"hint"_s);
}
