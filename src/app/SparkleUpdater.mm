#include "app/SparkleUpdater.h"

#import <Sparkle/Sparkle.h>

// Built with automatic reference counting: the strong member keeps the
// controller alive exactly as long as this object.
struct SparkleUpdater::Controller
{
    SPUStandardUpdaterController* updaterController = nil;
};

SparkleUpdater::SparkleUpdater() : m_controller(std::make_unique<Controller>())
{
    m_controller->updaterController =
        [[SPUStandardUpdaterController alloc] initWithStartingUpdater:YES
                                                      updaterDelegate:nil
                                                   userDriverDelegate:nil];
}

SparkleUpdater::~SparkleUpdater() = default;

void SparkleUpdater::checkForUpdates()
{
    [m_controller->updaterController checkForUpdates:nil];
}
