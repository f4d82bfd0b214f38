#pragma once

#include "views/common/PlaceholderView.h"

// Shown instead of everything else while no dossier with an API key is set up.
class ConfigurationNeededView : public PlaceholderView
{
    Q_OBJECT

public:
    explicit ConfigurationNeededView(QWidget* parent = nullptr);
};
