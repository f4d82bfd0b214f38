#include "views/settings/LabelledField.h"

#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kIconSize = 14;
constexpr int kIconBox = 20;

} // namespace

LabelledField::LabelledField(const QString& symbolName, const QString& label, QWidget* input,
                             QWidget* parent)
    : QWidget(parent)
{
    // What a screen reader calls the input: the label above it.
    if (input->accessibleName().isEmpty())
        input->setAccessibleName(label);

    QFont labelFont = Theme::subheadline();
    labelFont.setWeight(QFont::Medium);
    auto* labelRow = new QHBoxLayout;
    labelRow->setSpacing(10);
    // The symbol centred in its box.
    constexpr int kIconMargin = (kIconBox - kIconSize) / 2;
    labelRow->addSpacing(kIconMargin);
    labelRow->addWidget(new SymbolLabel(symbolName, kIconSize, Theme::kSecondaryText), 0,
                        Qt::AlignVCenter);
    labelRow->addSpacing(kIconMargin);
    labelRow->addWidget(Theme::label(label, labelFont, QPalette::WindowText), 0, Qt::AlignVCenter);
    labelRow->addStretch();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addLayout(labelRow);
    const bool fixedWidth = input->maximumWidth() < QWIDGETSIZE_MAX;
    column->addWidget(input, 0, fixedWidth ? Qt::AlignLeft : Qt::Alignment());
    // A field with a set width takes no more room than it needs, so that a
    // neighbour in the same row sits right beside it.
    if (fixedWidth)
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
}
