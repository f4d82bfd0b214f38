#include "ConfigurationNeededView.h"

#include "SymbolLabel.h"
#include "Theme.h"
#include "ThemedLabel.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

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
    layout->addWidget(
        new ThemedLabel(u"Configureer een dossier met API key in Instellingen (Cmd+,)"_s,
                        Theme::body(), &Theme::secondaryText, this),
        0, Qt::AlignHCenter);
    layout->addStretch();
}
