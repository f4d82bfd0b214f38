#include "views/main/ConfigurationNeededView.h"

#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"
#include "views/common/ThemedLabel.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The settings shortcut is Command+, on macOS and Ctrl+, elsewhere.
#ifdef Q_OS_MACOS
constexpr QStringView kSettingsKey = u"Cmd+,";
#else
constexpr QStringView kSettingsKey = u"Ctrl+,";
#endif

} // namespace

ConfigurationNeededView::ConfigurationNeededView(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(16);
    layout->addStretch();
    layout->addWidget(new SymbolLabel(u"folder.badge.gearshape"_s, 48, &Theme::secondaryText, this),
                      0, Qt::AlignHCenter);
    layout->addWidget(
        new ThemedLabel(u"Configuratie vereist"_s, Theme::headline(), &Theme::primaryText, this), 0,
        Qt::AlignHCenter);
    auto* hint = new ThemedLabel(
        u"Configureer een dossier met API key in Instellingen (%1)"_s.arg(kSettingsKey),
        Theme::body(), &Theme::secondaryText, this);
    hint->setObjectName(u"hint"_s);
    layout->addWidget(hint, 0, Qt::AlignHCenter);
    layout->addStretch();
}
