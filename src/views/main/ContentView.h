#pragma once

#include "labelrender/LabelRenderer.h"

#include <QMessageBox>
#include <QPointer>
#include <QWidget>
#include <optional>

class AppSettings;
class CustomToolbar;
class LabelPreviewView;
class ProductListViewModel;
class QLabel;
class QScrollArea;
class QSplitter;
class QVBoxLayout;
class StatusBarView;

// The product window's root: title bar, toolbar, divider, one content area
// with the label preview panel beside it (hidden at first), and the status
// bar, plus the window-modal alert "Fout" for the view model's error message,
// whose "OK" clears the message (opened, not executed). The panel shows the
// selected product's label as it will print with the selected template.
class ContentView : public QWidget
{
    Q_OBJECT

public:
    // What the content area shows, in the order the states take precedence.
    enum class ContentState
    {
        ConfigurationNeeded,
        Loading,
        NoResults,
        Empty,
        ProductList
    };

    ContentView(AppSettings& settings, ProductListViewModel& viewModel, QWidget* parent = nullptr);
    ~ContentView() override;

    ContentState contentState() const { return m_state; }
    QWidget* contentWidget() const { return m_content; }

    // The window's own title row; shown only where the system title bar is hidden.
    void setTitleBarVisible(bool visible) { m_titleBar->setVisible(visible); }

    CustomToolbar* toolbar() const { return m_toolbar; }
    StatusBarView* statusBar() const { return m_statusBar; }
    // The open alert, or null.
    QMessageBox* errorAlert() const { return m_errorAlert; }

    // None until the panel is first shown.
    LabelPreviewView* labelPreview() const { return m_preview; }
    // The line under the panel's heading: the product and the template, or a hint.
    QLabel* labelPreviewSubtitle() const { return m_previewSubtitle; }
    bool isLabelPreviewShown() const;
    void setLabelPreviewShown(bool shown);

protected:
    void showEvent(QShowEvent* event) override;

private:
    // Opens, updates or closes the alert to match the current message.
    void showErrorMessage();
    void acknowledgeError();
    void updateContent();
    QWidget* createContent(ContentState state);
    void chainFocus();
    void buildLabelPreview();
    void refreshLabelPreview();

    AppSettings& m_settings;
    ProductListViewModel& m_viewModel;
    QWidget* m_titleBar;
    CustomToolbar* m_toolbar;
    StatusBarView* m_statusBar;
    QPointer<QMessageBox> m_errorAlert;
    QSplitter* m_splitter;
    QVBoxLayout* m_contentLayout;
    QWidget* m_previewPanel = nullptr;
    QLabel* m_previewSubtitle = nullptr;
    QScrollArea* m_previewScroll = nullptr;
    LabelPreviewView* m_preview = nullptr;
    // Made when the panel first draws: its font look-up costs start-up time.
    std::optional<LabelRenderer> m_renderer;
    // None until the window first appears.
    QWidget* m_content = nullptr;
    ContentState m_state = ContentState::ConfigurationNeeded;
};
