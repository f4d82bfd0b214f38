#pragma once

#include <QPalette>
#include <QString>
#include <functional>
#include <memory>

class MainWindow;
class ProductWindowFixture;
class QWidget;
class StampixApp;

// Walks one product window through its states against a local product
// service and label sink, and saves a picture of each state.
class MainWindowShots
{
public:
    static constexpr int kWidth = 1000;
    static constexpr int kHeight = 640;

    explicit MainWindowShots(QString outputDirectory);
    ~MainWindowShots();

    // The number of states that could not be reached or saved.
    int run();

    // The dark desktop palette the pictures use.
    static QPalette darkPalette();

private:
    void configurationNeeded();
    void loading();
    void empty();
    void noResults();
    void checkedWithSuccess();
    void saveFailed();
    void labelPreview();
    void hostileLabelPreviews();
    void errorAlert();
    void darkTable();

    bool waitFor(const char* what, const std::function<bool()>& condition, int timeoutMs = 5000);
    void settle();
    void save(const QString& name, QWidget* widget);
    void saveWithAlert(const QString& name);

    QString m_outputDirectory;
    std::unique_ptr<ProductWindowFixture> m_fixture;
    std::unique_ptr<StampixApp> m_app;
    MainWindow* m_window = nullptr;
    int m_failures = 0;
};
