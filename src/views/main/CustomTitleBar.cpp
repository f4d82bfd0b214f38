#include "views/main/CustomTitleBar.h"

#include "views/common/Theme.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

CustomTitleBar::CustomTitleBar(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(kHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addSpacing(kReservedWidth);
    layout->addStretch();
    auto* title = Theme::label(u"Stampix"_s, Theme::systemFont(13, QFont::Medium),
                               QPalette::WindowText, this);
    title->setObjectName(u"titleLabel"_s);
    layout->addWidget(title, 0, Qt::AlignVCenter);
    layout->addStretch();
    layout->addSpacing(kReservedWidth);
}
