#pragma once

#include <QStringList>
#include <QTextStream>

// The render tool's work once Qt is up: read the ZPL, fill it, draw it, write
// the PNG. Returns the process exit code; messages go to `errors`.
class RenderLabelCommand
{
public:
    static int run(const QStringList& arguments, QTextStream& errors);
};
