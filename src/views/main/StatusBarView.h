#pragma once

#include <QWidget>

class AppSettings;
class PrintButton;
class ProductListViewModel;
class QLabel;
class QLineEdit;
class SaveErrorLabel;

// The bottom row: product count, success message, the print controls while
// products are checked, and the version; below it, only after a failed save,
// why the settings were not saved.
class StatusBarView : public QWidget
{
    Q_OBJECT

public:
    StatusBarView(AppSettings& settings, ProductListViewModel& viewModel,
                  QWidget* parent = nullptr);

    bool isPrinting() const { return m_isPrinting; }

    QLabel* countLabel() const { return m_countLabel; }
    SaveErrorLabel* saveErrorLabel() const { return m_saveErrorLabel; }
    QWidget* successRow() const { return m_successRow; }
    QWidget* printControls() const { return m_printControls; }
    QLineEdit* quantityField() const { return m_quantityField; }
    PrintButton* printButton() const { return m_printButton; }
    QLabel* versionLabel() const { return m_versionLabel; }
    // The controls that take the keyboard focus, left to right.
    QList<QWidget*> focusChain() const;

private:
    void showModel();
    void showQuantity();
    void commitQuantity();
    void updatePrintButton();
    void startPrinting();
    void finishPrinting();

    AppSettings& m_settings;
    ProductListViewModel& m_viewModel;
    QLabel* m_countLabel;
    SaveErrorLabel* m_saveErrorLabel;
    QWidget* m_successRow;
    QLabel* m_successLabel;
    QWidget* m_printControls;
    QLineEdit* m_quantityField;
    PrintButton* m_printButton;
    QLabel* m_versionLabel;
    bool m_isPrinting = false;
};
