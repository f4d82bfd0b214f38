#include "SettingsEditorPage.h"

#include "SettingsSectionCard.h"
#include "ThemedLabel.h"
#include "views/main/SymbolIcons.h"
#include "views/main/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSectionSpacing = 20;

} // namespace

SettingsEditorPage::SettingsEditorPage(QWidget* parent)
    : QWidget(parent), m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(16, 8 + 12, 16, 16);
    m_column->setSpacing(kSectionSpacing);
    m_column->addStretch(1);
}

SettingsEditorPage::Section SettingsEditorPage::addSection(const QString& header)
{
    auto* section = new QWidget;
    auto* layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    if (!header.isEmpty()) {
        auto* title = new ThemedLabel(header, Theme::headline(), &Theme::primaryText);
        title->setContentsMargins(4, 0, 0, 0);
        layout->addWidget(title);
    }
    auto* card = new SettingsSectionCard;
    layout->addWidget(card);
    // Keep the trailing stretch last.
    m_column->insertWidget(m_column->count() - 1, section);
    return {section, card->content()};
}

QPushButton* SettingsEditorPage::addDeleteSection(const QString& text, QWidget** section)
{
    const Section created = addSection({});
    created.content->setContentsMargins(12, 8, 12, 8);
    QPushButton* button = makeButton(text);
    button->setIcon(SymbolIcons::tinted(u"trash", Theme::red()));
    QPalette pal = button->palette();
    pal.setColor(QPalette::ButtonText, Theme::red());
    button->setPalette(pal);
    button->setFlat(true);
    button->setCursor(Qt::PointingHandCursor);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(button);
    row->addStretch();
    created.content->addLayout(row);
    if (section)
        *section = created.widget;
    return button;
}

void SettingsEditorPage::syncText(QLineEdit* field, const QString& text)
{
    if (field->text() != text)
        field->setText(text);
}

QLineEdit* SettingsEditorPage::makeLineEdit(const QString& placeholder, int width)
{
    auto* field = new QLineEdit;
    field->setPlaceholderText(placeholder);
    if (width > 0)
        field->setFixedWidth(width);
    showFieldEdge(field);
    return field;
}

void SettingsEditorPage::showFieldEdge(QWidget* field)
{
    // The section card is painted in the base colour that fields also use. In
    // a dark palette the style's frame hardly shows against it, so the field
    // is lifted a little above the card.
    QPalette pal = field->palette();
    const QColor base = pal.color(QPalette::Base);
    if (base.lightnessF() < 0.5) {
        const QColor text = pal.color(QPalette::Text);
        const qreal weight = 0.1;
        pal.setColor(QPalette::Base,
                     QColor::fromRgbF(base.redF() * (1 - weight) + text.redF() * weight,
                                      base.greenF() * (1 - weight) + text.greenF() * weight,
                                      base.blueF() * (1 - weight) + text.blueF() * weight));
        field->setPalette(pal);
    }
}

QColor SettingsEditorPage::green(const QPalette&)
{
    return Theme::green();
}

QColor SettingsEditorPage::red(const QPalette&)
{
    return Theme::red();
}

QPushButton* SettingsEditorPage::makeButton(const QString& text)
{
    auto* button = new QPushButton(text);
    // Outside a dialog Qt presses a focused button only with the space bar,
    // which the product table may be keeping for itself.
    button->setAutoDefault(true);
    return button;
}
