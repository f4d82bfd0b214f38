#pragma once

#include <memory>

// The Sparkle framework's standard updater controller (macOS builds that find
// the framework). It fetches the feed, compares versions and shows its own
// windows; its feed, signing key and scheduled checks come from the bundle's
// information, supplied at packaging time.
class SparkleUpdater
{
public:
    // Starts the updater at once, with no delegates.
    SparkleUpdater();
    SparkleUpdater(const SparkleUpdater&) = delete;
    SparkleUpdater& operator=(const SparkleUpdater&) = delete;
    ~SparkleUpdater();

    // A check in the foreground with the framework's own dialogs.
    void checkForUpdates();

private:
    struct Controller;
    std::unique_ptr<Controller> m_controller;
};
