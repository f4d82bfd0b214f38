#pragma once

#include "labelrender/LabelRenderer.h"

#include <QWidget>
#include <optional>

class AppSettings;
class LabelPreviewView;
class ProductListViewModel;
class QLabel;
class QScrollArea;

// The side panel of the product window: the selected product's label as it
// will print with the selected template, and its warnings. It follows the
// selection, the template choice and template edits while it is shown.
class LabelPreviewPanel : public QWidget
{
    Q_OBJECT

public:
    LabelPreviewPanel(AppSettings& settings, ProductListViewModel& viewModel,
                      QWidget* parent = nullptr);

    LabelPreviewView* preview() const { return m_preview; }
    // The line under the heading: the product and the template, or a hint.
    QLabel* subtitle() const { return m_subtitle; }
    bool isPreviewShown() const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();

    AppSettings& m_settings;
    ProductListViewModel& m_viewModel;
    // Made when the panel first draws: its font look-up costs start-up time.
    std::optional<LabelRenderer> m_renderer;
    QLabel* m_subtitle;
    QScrollArea* m_scroll;
    LabelPreviewView* m_preview;
};
