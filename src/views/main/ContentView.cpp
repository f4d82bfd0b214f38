#include "views/main/ContentView.h"

#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/common/Divider.h"
#include "views/main/ConfigurationNeededView.h"
#include "views/main/CustomTitleBar.h"
#include "views/main/CustomToolbar.h"
#include "views/main/EmptyStateView.h"
#include "views/main/ErrorAlert.h"
#include "views/main/LabelPreviewPanel.h"
#include "views/main/LoadingView.h"
#include "views/main/NoResultsView.h"
#include "views/main/ProductListView.h"
#include "views/main/StatusBarView.h"

#include <QShowEvent>
#include <QSplitter>
#include <QVBoxLayout>

namespace {

constexpr QSize kMinimumSize{600, 400};
constexpr int kPreviewWidth = 300;

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
      m_statusBar(new StatusBarView(settings, viewModel, this)),
      m_errorAlert(new ErrorAlert(viewModel, this)), m_splitter(new QSplitter(this)),
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

    // Every value the choice of content reads. The content is made when the
    // window first appears: that is when the first load starts, and a
    // placeholder made before it would never be seen.
    for (auto signal : {&AppSettings::dossiersChanged, &AppSettings::selectedDossierIDChanged})
        connect(&m_settings, signal, this, &ContentView::updateContent);
    for (auto signal :
         {&ProductListViewModel::isLoadingChanged, &ProductListViewModel::productsChanged,
          &ProductListViewModel::filteredProductsChanged, &ProductListViewModel::searchTextChanged})
        connect(&m_viewModel, signal, this, &ContentView::updateContent);
}

QMessageBox* ContentView::errorAlert() const
{
    return m_errorAlert->messageBox();
}

bool ContentView::isLabelPreviewShown() const
{
    return m_labelPreview && !m_labelPreview->isHidden();
}

void ContentView::setLabelPreviewShown(bool shown)
{
    if (shown == isLabelPreviewShown())
        return;
    // Made the first time it is asked for: most sessions never open it.
    if (!m_labelPreview) {
        m_labelPreview = new LabelPreviewPanel(m_settings, m_viewModel);
        m_labelPreview->hide();
        m_splitter->addWidget(m_labelPreview);
        m_splitter->setStretchFactor(1, 0);
        chainFocus();
    }
    if (shown)
        m_splitter->setSizes({qMax(0, m_splitter->width() - kPreviewWidth), kPreviewWidth});
    m_labelPreview->setVisible(shown);
}

void ContentView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // Restoring a minimised window is not appearing: a failed first load is not retried.
    if (event->spontaneous())
        return;
    m_viewModel.setSettings(&m_settings);
    m_errorAlert->showMessage();
    if (m_settings.isConfigured() && m_viewModel.products().isEmpty())
        m_viewModel.fetchProducts();
    updateContent();
}

void ContentView::updateContent()
{
    const ContentState state = stateFor(m_settings, m_viewModel);
    if (m_content && state == m_state) {
        if (auto* noResults = qobject_cast<NoResultsView*>(m_content))
            noResults->setSearchText(m_viewModel.searchText());
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
        return new ConfigurationNeededView(this);
    case ContentState::Loading:
        return new LoadingView(this);
    case ContentState::NoResults:
        return new NoResultsView(m_viewModel.searchText(), this);
    case ContentState::Empty:
        return new EmptyStateView([this] { m_viewModel.fetchProducts(); }, this);
    case ContentState::ProductList:
        return new ProductListView(m_viewModel, m_settings, this);
    }
    return nullptr;
}

void ContentView::chainFocus()
{
    // Tab goes left to right through the toolbar, then the content, then the status bar.
    QList<QWidget*> chain = m_toolbar->focusChain();
    for (QWidget* area : {m_content, static_cast<QWidget*>(m_labelPreview)}) {
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
