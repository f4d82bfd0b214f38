#include "views/main/LabelPreviewPanel.h"

#include "labelrender/LabelPreview.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/common/LabelPreviewView.h"
#include "views/common/Theme.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMinimumWidth = 220;
constexpr int kMargin = 12;

} // namespace

LabelPreviewPanel::LabelPreviewPanel(AppSettings& settings, ProductListViewModel& viewModel,
                                     QWidget* parent)
    : QWidget(parent), m_settings(settings), m_viewModel(viewModel),
      m_subtitle(Theme::label({}, Theme::caption(), Theme::kSecondaryText)),
      m_scroll(new QScrollArea), m_preview(new LabelPreviewView)
{
    setMinimumWidth(kMinimumWidth);
    m_subtitle->setWordWrap(true);
    m_scroll->setWidget(m_preview);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_preview->setAutoFillBackground(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, 0);
    layout->setSpacing(4);
    layout->addWidget(Theme::label(u"Etiketvoorbeeld"_s, Theme::headline(), QPalette::WindowText));
    layout->addWidget(m_subtitle);
    layout->addSpacing(6);
    layout->addWidget(m_scroll, 1);
    layout->addStretch(); // holds the hint at the top while the picture is hidden

    for (auto signal :
         {&ProductListViewModel::selectedProductIDChanged, &ProductListViewModel::productsChanged})
        connect(&m_viewModel, signal, this, &LabelPreviewPanel::refresh);
    for (auto signal : {&AppSettings::selectedTemplateIDChanged, &AppSettings::templatesChanged})
        connect(&m_settings, signal, this, &LabelPreviewPanel::refresh);
}

bool LabelPreviewPanel::isPreviewShown() const
{
    return !m_scroll->isHidden();
}

void LabelPreviewPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

void LabelPreviewPanel::refresh()
{
    // A hidden panel draws nothing; it catches up when it is shown.
    if (!isVisible())
        return;
    const std::optional<Product> product = m_viewModel.selectedProduct();
    const std::optional<LabelTemplate> labelTemplate = m_settings.selectedTemplate();
    m_scroll->setVisible(product && labelTemplate);
    if (!product)
        return m_subtitle->setText(u"Selecteer een product om het etiket te zien."_s);
    if (!labelTemplate)
        return m_subtitle->setText(u"Kies een etiket om het voorbeeld te zien."_s);
    m_subtitle->setText(u"%1 · %2"_s.arg(product->sku(), labelTemplate->name));
    if (!m_renderer)
        m_renderer.emplace();
    m_preview->showPreview(
        LabelPreview::make(*m_renderer, labelTemplate->zplContent, &*product, 1));
}
