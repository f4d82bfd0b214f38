#include "views/settings/SettingsEditorPage.h"

#include "viewmodels/SettingsViewModel.h"
#include "views/common/Card.h"
#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSectionSpacing = 20;

} // namespace

SettingsEditorPage::SettingsEditorPage(SettingsViewModel* model, SettingsTabKey::Kind kind,
                                       QWidget* parent)
    : QWidget(parent), m_model(model), m_kind(kind), m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(16, 8 + 12, 16, 16);
    m_column->setSpacing(kSectionSpacing);
    m_column->addStretch(1);
}

qsizetype SettingsEditorPage::index() const
{
    return m_model ? m_model->indexOf(m_kind, m_record) : -1;
}

QVBoxLayout* SettingsEditorPage::addSection(const QString& header)
{
    auto* section = new QWidget;
    auto* layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    if (!header.isEmpty()) {
        auto* title = Theme::label(header, Theme::headline(), QPalette::WindowText);
        title->setContentsMargins(4, 0, 0, 0);
        layout->addWidget(title);
    }
    // Cards differ from the window and from the fields on them.
    auto* card =
        new Card(8, QPalette::AlternateBase, QPalette::WindowText, Theme::kSeparatorOpacity * 0.6);
    auto* content = new QVBoxLayout(card);
    content->setContentsMargins(12, 12, 12, 12);
    content->setSpacing(12);
    content->setAlignment(Qt::AlignTop);
    layout->addWidget(card);
    // Keep the trailing stretch last.
    m_column->insertWidget(m_column->count() - 1, section);
    return content;
}

QPushButton* SettingsEditorPage::addDeleteSection(const QString& text)
{
    QVBoxLayout* content = addSection({});
    content->setContentsMargins(12, 8, 12, 8);
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
    content->addLayout(row);
    return button;
}

void SettingsEditorPage::showDeleteSection(QPushButton* button, bool shown)
{
    // The button sits on the section's card.
    button->parentWidget()->parentWidget()->setVisible(shown);
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

QPushButton* SettingsEditorPage::makeButton(const QString& text)
{
    auto* button = new QPushButton(text);
    // Outside a dialog Qt presses a focused button only with the space bar,
    // which the product table may be keeping for itself.
    button->setAutoDefault(true);
    return button;
}
