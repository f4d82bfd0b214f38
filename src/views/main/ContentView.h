#pragma once

#include <QWidget>

class AppSettings;
class CustomToolbar;
class ErrorAlert;
class LabelPreviewPanel;
class ProductListViewModel;
class QMessageBox;
class QSplitter;
class QVBoxLayout;
class StatusBarView;

// The product window's root: title bar, toolbar, divider, one content area
// with the label preview panel beside it (hidden at first), and the status
// bar, plus the alert for the view model's error message.
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

    ContentState contentState() const { return m_state; }
    QWidget* contentWidget() const { return m_content; }

    // The window's own title row; shown only where the system title bar is hidden.
    void setTitleBarVisible(bool visible) { m_titleBar->setVisible(visible); }

    CustomToolbar* toolbar() const { return m_toolbar; }
    StatusBarView* statusBar() const { return m_statusBar; }
    QMessageBox* errorAlert() const;

    // None until the panel is first shown.
    LabelPreviewPanel* labelPreview() const { return m_labelPreview; }
    bool isLabelPreviewShown() const;
    void setLabelPreviewShown(bool shown);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void updateContent();
    QWidget* createContent(ContentState state);
    void chainFocus();

    AppSettings& m_settings;
    ProductListViewModel& m_viewModel;
    QWidget* m_titleBar;
    CustomToolbar* m_toolbar;
    StatusBarView* m_statusBar;
    ErrorAlert* m_errorAlert;
    QSplitter* m_splitter;
    QVBoxLayout* m_contentLayout;
    LabelPreviewPanel* m_labelPreview = nullptr;
    // None until the window first appears.
    QWidget* m_content = nullptr;
    ContentState m_state = ContentState::ConfigurationNeeded;
};
