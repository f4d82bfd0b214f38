#include "views/main/ContentView.h"

#include "labelrender/LabelPreview.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/common/BusyIndicator.h"
#include "views/common/Divider.h"
#include "views/common/LabelPreviewView.h"
#include "views/common/PlaceholderView.h"
#include "views/common/Theme.h"
#include "views/main/CustomTitleBar.h"
#include "views/main/CustomToolbar.h"
#include "views/main/ProductListView.h"
#include "views/main/StatusBarView.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QShowEvent>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kMinimumSize{600, 400};
constexpr int kPreviewWidth = 300;
constexpr int kPreviewMinimumWidth = 220;
constexpr int kPreviewMargin = 12;
// The regular spinning wheel is 32 pixels; this one is drawn half as large again.
constexpr int kWheelDiameter = 48;
#ifdef Q_OS_MACOS
constexpr QStringView kSettingsKey = u"Cmd+,";
#else
constexpr QStringView kSettingsKey = u"Ctrl+,";
#endif

// The placeholders of the content area.
PlaceholderView* configurationNeededView()
{
    auto* view = new PlaceholderView(
        PlaceholderView::symbol(u"folder.badge.gearshape"_s), u"Configuratie vereist"_s,
        u"Configureer een dossier met API key in Instellingen (%1)"_s.arg(kSettingsKey));
    view->detail()->setObjectName(u"hint"_s);
    return view;
}

PlaceholderView* loadingView()
{
    return new PlaceholderView(new BusyIndicator(kWheelDiameter), {}, u"Producten laden..."_s);
}

QString noResultsHeadline(const QString& searchText)
{
    return u"Geen resultaten voor \""_s + searchText + u"\""_s;
}

PlaceholderView* noResultsView(const QString& searchText)
{
    auto* view =
        new PlaceholderView(PlaceholderView::symbol(u"magnifyingglass"_s),
                            noResultsHeadline(searchText), u"Probeer een andere zoekterm"_s);
    view->headline()->setTextFormat(Qt::PlainText);
    return view;
}

PlaceholderView* emptyStateView(ProductListViewModel& viewModel)
{
    auto* view = new PlaceholderView(PlaceholderView::symbol(u"cube.box"_s),
                                     u"Geen producten gevonden"_s, {});
    QPushButton* refresh = view->addButton(u"Vernieuwen"_s);
    refresh->setObjectName(u"refreshButton"_s);
    QObject::connect(refresh, &QPushButton::clicked, &viewModel,
                     &ProductListViewModel::fetchProducts);
    return view;
}

// What the content area shows: the first state that holds.
ContentView::ContentState stateFor(const AppSettings& settings,
                                   const ProductListViewModel& viewModel)
{
    if (!settings.isConfigured())
        return ContentView::ContentState::ConfigurationNeeded;
    if (viewModel.isLoading())
        return ContentView::ContentState::Loading;
    if (viewModel.filteredCount() == 0 && !viewModel.searchText().isEmpty())
        return ContentView::ContentState::NoResults;
    if (viewModel.products().isEmpty())
        return ContentView::ContentState::Empty;
    return ContentView::ContentState::ProductList;
}

} // namespace

ContentView::ContentView(AppSettings& settings, ProductListViewModel& viewModel, QWidget* parent)
    : QWidget(parent), m_settings(settings), m_viewModel(viewModel),
      m_titleBar(new CustomTitleBar(this)), m_toolbar(new CustomToolbar(settings, viewModel, this)),
      m_statusBar(new StatusBarView(settings, viewModel, this)), m_splitter(new QSplitter(this)),
      m_contentLayout(new QVBoxLayout)
{
    setMinimumSize(kMinimumSize);
    setBackgroundRole(QPalette::Window);
    setAutoFillBackground(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_titleBar);
    layout->addWidget(m_toolbar);
    layout->addWidget(new Divider(Qt::Horizontal, 0, this));
    layout->addWidget(m_splitter, 1);
    layout->addWidget(m_statusBar);

    // The content area takes the room the window gains; the panel keeps its width.
    auto* contentArea = new QWidget;
    contentArea->setLayout(m_contentLayout);
    m_contentLayout->setContentsMargins(0, 0, 0, 0);
    m_splitter->addWidget(contentArea);
    m_splitter->setStretchFactor(0, 1);
    m_splitter->setChildrenCollapsible(false);

    // Every value the choice of content reads. The content is made when the window first
    // appears, with the first load: a placeholder made before would never be seen.
    for (auto signal : {&AppSettings::dossiersChanged, &AppSettings::selectedDossierIDChanged})
        connect(&m_settings, signal, this, &ContentView::updateContent);
    for (auto signal :
         {&ProductListViewModel::isLoadingChanged, &ProductListViewModel::productsChanged,
          &ProductListViewModel::filteredProductsChanged, &ProductListViewModel::searchTextChanged})
        connect(&m_viewModel, signal, this, &ContentView::updateContent);
    connect(&m_viewModel, &ProductListViewModel::errorMessageChanged, this,
            &ContentView::showErrorMessage);
}

ContentView::~ContentView()
{
    // Before this object is half gone: the alert calls back when it finishes.
    delete m_errorAlert;
}

void ContentView::showErrorMessage()
{
    const std::optional<QString>& message = m_viewModel.errorMessage();
    if (!message) {
        if (m_errorAlert) {
            // Cleared elsewhere (another window's alert, a new load): close without a second clear.
            m_errorAlert->disconnect(this);
            m_errorAlert->close();
            m_errorAlert->deleteLater();
            m_errorAlert = nullptr;
        }
        return;
    }
    const bool isNew = !m_errorAlert;
    if (isNew) {
        m_errorAlert = new QMessageBox(this);
        m_errorAlert->setObjectName(u"errorAlert"_s);
        m_errorAlert->setIcon(QMessageBox::Warning);
        m_errorAlert->setWindowTitle(u"Fout"_s);
        m_errorAlert->setTextFormat(Qt::PlainText);
        QPushButton* ok = m_errorAlert->addButton(u"OK"_s, QMessageBox::AcceptRole);
        ok->setObjectName(u"okButton"_s);
        m_errorAlert->setDefaultButton(ok);
        m_errorAlert->setEscapeButton(ok);
        m_errorAlert->setWindowModality(Qt::WindowModal);
        connect(m_errorAlert, &QMessageBox::finished, this, &ContentView::acknowledgeError);
    }
#ifdef Q_OS_MACOS
    // A sheet has no title bar: the title leads and the message follows, as in a native alert.
    m_errorAlert->setText(u"Fout"_s);
    m_errorAlert->setInformativeText(*message);
#else
    m_errorAlert->setText(*message);
#endif
    if (isNew)
        m_errorAlert->open();
}

void ContentView::acknowledgeError()
{
    if (m_errorAlert)
        m_errorAlert->deleteLater();
    m_errorAlert = nullptr;
    m_viewModel.clearError();
}

bool ContentView::isLabelPreviewShown() const
{
    return m_previewPanel && !m_previewPanel->isHidden();
}

void ContentView::setLabelPreviewShown(bool shown)
{
    if (shown == isLabelPreviewShown())
        return;
    // Made the first time it is asked for: most sessions never open it.
    if (!m_previewPanel)
        buildLabelPreview();
    if (shown)
        m_splitter->setSizes({qMax(0, m_splitter->width() - kPreviewWidth), kPreviewWidth});
    m_previewPanel->setVisible(shown);
    refreshLabelPreview();
}

void ContentView::buildLabelPreview()
{
    m_previewPanel = new QWidget;
    m_previewPanel->hide();
    m_previewPanel->setMinimumWidth(kPreviewMinimumWidth);
    m_previewSubtitle = Theme::label({}, Theme::caption(), Theme::kSecondaryText);
    m_previewSubtitle->setWordWrap(true);
    m_preview = new LabelPreviewView;
    m_preview->setAutoFillBackground(false);
    m_previewScroll = new QScrollArea;
    m_previewScroll->setWidget(m_preview);
    m_previewScroll->setWidgetResizable(true);
    m_previewScroll->setFrameShape(QFrame::NoFrame);
    m_previewScroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_previewScroll->setFocusPolicy(Qt::NoFocus);
    m_previewScroll->viewport()->setAutoFillBackground(false);

    auto* layout = new QVBoxLayout(m_previewPanel);
    layout->setContentsMargins(kPreviewMargin, kPreviewMargin, kPreviewMargin, 0);
    layout->setSpacing(4);
    layout->addWidget(Theme::label(u"Etiketvoorbeeld"_s, Theme::headline(), QPalette::WindowText));
    layout->addWidget(m_previewSubtitle);
    layout->addSpacing(6);
    layout->addWidget(m_previewScroll, 1);
    layout->addStretch(); // holds the hint at the top while the picture is hidden
    m_splitter->addWidget(m_previewPanel);
    m_splitter->setStretchFactor(1, 0);
    chainFocus();

    for (auto signal :
         {&ProductListViewModel::selectedProductIDChanged, &ProductListViewModel::productsChanged})
        connect(&m_viewModel, signal, this, &ContentView::refreshLabelPreview);
    for (auto signal : {&AppSettings::selectedTemplateIDChanged, &AppSettings::templatesChanged})
        connect(&m_settings, signal, this, &ContentView::refreshLabelPreview);
}

void ContentView::refreshLabelPreview()
{
    // A hidden panel draws nothing; it catches up when it is shown.
    if (!isLabelPreviewShown())
        return;
    const std::optional<Product> product = m_viewModel.selectedProduct();
    const std::optional<LabelTemplate> labelTemplate = m_settings.selectedTemplate();
    m_previewScroll->setVisible(product && labelTemplate);
    if (!product)
        return m_previewSubtitle->setText(u"Selecteer een product om het etiket te zien."_s);
    if (!labelTemplate)
        return m_previewSubtitle->setText(u"Kies een etiket om het voorbeeld te zien."_s);
    m_previewSubtitle->setText(u"%1 · %2"_s.arg(product->sku(), labelTemplate->name));
    if (!m_renderer)
        m_renderer.emplace();
    m_preview->showPreview(
        LabelPreview::make(*m_renderer, labelTemplate->zplContent, &*product, 1));
}

void ContentView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // Restoring a minimised window is not appearing: a failed first load is not retried.
    if (event->spontaneous())
        return;
    m_viewModel.setSettings(&m_settings);
    showErrorMessage();
    if (m_settings.isConfigured() && m_viewModel.products().isEmpty())
        m_viewModel.fetchProducts();
    updateContent();
}

void ContentView::updateContent()
{
    const ContentState state = stateFor(m_settings, m_viewModel);
    if (m_content && state == m_state) {
        if (state == ContentState::NoResults)
            static_cast<PlaceholderView*>(m_content)->headline()->setText(
                noResultsHeadline(m_viewModel.searchText()));
        return;
    }
    m_state = state;
    QWidget* old = m_content;
    m_content = createContent(state);
    m_contentLayout->addWidget(m_content);
    // A layout would only show it on the next pass of the event loop.
    m_content->show();
    chainFocus();
    if (!old)
        return;
    m_contentLayout->removeWidget(old);
    if (qobject_cast<ProductListView*>(old)) {
        // At once, so its space bar filter ends with it.
        delete old;
    } else {
        // A placeholder may be replaced from inside its own button's click.
        old->hide();
        old->deleteLater();
    }
}

QWidget* ContentView::createContent(ContentState state)
{
    switch (state) {
    case ContentState::ConfigurationNeeded:
        return configurationNeededView();
    case ContentState::Loading:
        return loadingView();
    case ContentState::NoResults:
        return noResultsView(m_viewModel.searchText());
    case ContentState::Empty:
        return emptyStateView(m_viewModel);
    case ContentState::ProductList:
        return new ProductListView(m_viewModel, m_settings, this);
    }
    return nullptr;
}

void ContentView::chainFocus()
{
    // Tab goes left to right through the toolbar, then the content, then the status bar.
    QList<QWidget*> chain = m_toolbar->focusChain();
    for (QWidget* area : {m_content, m_previewPanel}) {
        const QList<QWidget*> children = area ? area->findChildren<QWidget*>() : QList<QWidget*>();
        for (QWidget* widget : children) {
            if (widget->focusPolicy() & Qt::TabFocus)
                chain.append(widget);
        }
    }
    chain.append(m_statusBar->focusChain());
    for (qsizetype i = 1; i < chain.size(); ++i)
        setTabOrder(chain.at(i - 1), chain.at(i));
}
