#include "views/main/StatusBarView.h"

#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/common/AppInfo.h"
#include "views/common/SaveErrorLabel.h"
#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"
#include "views/main/PrintButton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kQuantityWidth = 60;

} // namespace

StatusBarView::StatusBarView(AppSettings& settings, ProductListViewModel& viewModel,
                             QWidget* parent)
    : QWidget(parent), m_settings(settings), m_viewModel(viewModel),
      m_countLabel(Theme::label(QString(), Theme::caption(), Theme::kSecondaryText, this)),
      m_saveErrorLabel(new SaveErrorLabel(settings, Theme::caption(), this)),
      m_successRow(new QWidget(this)),
      m_successLabel(Theme::label({}, Theme::caption(), Theme::kSuccessText, m_successRow)),
      m_printControls(new QWidget(this)), m_quantityField(new QLineEdit(m_printControls)),
      m_printButton(new PrintButton(m_printControls)),
      m_versionLabel(
          Theme::label(u"v"_s + AppInfo::version(), Theme::caption(), Theme::kSecondaryText, this))
{
    m_countLabel->setObjectName(u"countLabel"_s);
    m_versionLabel->setObjectName(u"versionLabel"_s);
    m_successRow->setObjectName(u"successRow"_s);
    auto* success = new QHBoxLayout(m_successRow);
    success->setContentsMargins(0, 0, 0, 0);
    success->setSpacing(4);
    success->addWidget(
        new SymbolLabel(u"checkmark.circle.fill"_s, 11, Theme::kSuccessText, m_successRow));
    m_successLabel->setTextFormat(Qt::PlainText);
    success->addWidget(m_successLabel);

    m_printControls->setObjectName(u"printControls"_s);
    auto* print = new QHBoxLayout(m_printControls);
    print->setContentsMargins(0, 0, 0, 0);
    print->setSpacing(12);
    print->addWidget(
        Theme::label(u"Aantal:"_s, Theme::systemFont(13), Theme::kSecondaryText, m_printControls));
    m_quantityField->setObjectName(u"quantityField"_s);
    m_quantityField->setFixedWidth(kQuantityWidth);
    m_quantityField->setAlignment(Qt::AlignCenter);
    m_quantityField->setFont(Theme::body());
    m_quantityField->setAccessibleName(u"Aantal"_s);
    print->addWidget(m_quantityField);
    m_printButton->setObjectName(u"printButton"_s);
    print->addWidget(m_printButton);

    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(m_countLabel);
    row->addStretch();
    row->addWidget(m_successRow);
    row->addWidget(m_printControls);
    row->addStretch();
    row->addWidget(m_versionLabel);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 12);
    column->setSpacing(4);
    column->addLayout(row);
    // Its own line, so it never squeezes the row; it takes no room while saves succeed.
    column->addWidget(m_saveErrorLabel);

    connect(m_quantityField, &QLineEdit::editingFinished, this, &StatusBarView::commitQuantity);
    connect(m_printButton, &PrintButton::clicked, this, &StatusBarView::startPrinting);
    for (auto signal : {&ProductListViewModel::filteredProductsChanged,
                        &ProductListViewModel::successMessageChanged,
                        &ProductListViewModel::checkedProductIDsChanged})
        connect(&m_viewModel, signal, this, &StatusBarView::showModel);
    connect(&m_viewModel, &ProductListViewModel::printQuantityChanged, this,
            &StatusBarView::showQuantity);
    for (auto signal : {&AppSettings::templatesChanged, &AppSettings::selectedTemplateIDChanged,
                        &AppSettings::printersChanged})
        connect(&m_settings, signal, this, &StatusBarView::updatePrintButton);

    showModel();
    showQuantity();
    updatePrintButton();
}

QList<QWidget*> StatusBarView::focusChain() const
{
    return {m_quantityField, m_printButton};
}

void StatusBarView::showModel()
{
    // Always the plural, also for one product.
    m_countLabel->setText(QString::number(m_viewModel.filteredCount()) + u" producten"_s);
    const std::optional<QString>& message = m_viewModel.successMessage();
    m_successLabel->setText(message.value_or(QString()));
    m_successRow->setVisible(message.has_value());
    m_printControls->setVisible(!m_viewModel.checkedProductIDs().isEmpty());
}

void StatusBarView::showQuantity()
{
    m_quantityField->setText(QString::number(m_viewModel.printQuantity()));
}

void StatusBarView::commitQuantity()
{
    // A whole number, no grouping and no bounds; anything else is not written.
    bool isNumber = false;
    const qint64 quantity = m_quantityField->text().trimmed().toLongLong(&isNumber);
    if (isNumber)
        m_viewModel.setPrintQuantity(quantity);
    showQuantity();
}

void StatusBarView::updatePrintButton()
{
    m_printButton->setEnabled(m_settings.isPrinterConfigured() && !m_isPrinting);
    m_printButton->setBusy(m_isPrinting);
}

void StatusBarView::startPrinting()
{
    m_isPrinting = true;
    updatePrintButton();
    QCoro::connect(m_viewModel.printCheckedLabels(), this, &StatusBarView::finishPrinting);
}

void StatusBarView::finishPrinting()
{
    m_isPrinting = false;
    updatePrintButton();
}
