#pragma once

class QWidget;

// Hides the title bar of a shown top-level window but keeps its window
// buttons, and lets the content reach up to the window's top edge.
void hideSystemTitleBar(QWidget* window);
