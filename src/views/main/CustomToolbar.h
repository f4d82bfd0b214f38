#pragma once

#include <QUuid>
#include <QWidget>
#include <optional>

class AppSettings;
class ProductListViewModel;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

// The row under the title: dossier and label pickers, the search field, the
// badge of checked products and the reload button. It keeps no state: every
// control reads from and writes to the store or the view model.
class CustomToolbar : public QWidget
{
    Q_OBJECT

public:
    CustomToolbar(AppSettings& settings, ProductListViewModel& viewModel,
                  QWidget* parent = nullptr);

    QComboBox* dossierPicker() const { return m_dossierPicker; }
    QComboBox* templatePicker() const { return m_templatePicker; }
    QLineEdit* searchField() const { return m_searchField; }
    QWidget* checkedBadge() const { return m_badge; }
    QToolButton* clearCheckedButton() const { return m_clearChecked; }
    QPushButton* reloadButton() const { return m_reload; }
    // The controls that take the keyboard focus, left to right.
    QList<QWidget*> focusChain() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    QWidget* buildSearchField();
    QWidget* buildCheckedBadge();
    void showReloadSymbol();
    void showPickers();
    void reloadOnDossierChange();
    void showSearchText();
    void showCheckedCount();
    void showLoading();

    AppSettings& m_settings;
    ProductListViewModel& m_viewModel;
    QComboBox* m_dossierPicker;
    QComboBox* m_templatePicker;
    QLineEdit* m_searchField;
    QWidget* m_badge = nullptr;
    QLabel* m_badgeLabel = nullptr;
    QToolButton* m_clearChecked = nullptr;
    QPushButton* m_reload;
    // Only to tell a real change of the selected dossier from a repeated assignment.
    std::optional<QUuid> m_observedDossierID;
};
