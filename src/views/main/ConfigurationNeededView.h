#pragma once

#include <QWidget>

// Shown instead of everything else while no dossier with an API key is set up.
class ConfigurationNeededView : public QWidget
{
    Q_OBJECT

public:
    explicit ConfigurationNeededView(QWidget* parent = nullptr);
};
