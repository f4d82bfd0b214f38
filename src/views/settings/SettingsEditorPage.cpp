#include "SettingsEditorPage.h"

#include "SettingsSectionCard.h"
#include "SettingsText.h"
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
        auto* title = SettingsText::label(header, Theme::headline(), Theme::primaryText(palette()));
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
    auto* button = new QPushButton(SymbolIcons::tinted(u"trash", Theme::red()), text);
    SettingsText::setTextColor(button, Theme::red());
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
    return field;
}
