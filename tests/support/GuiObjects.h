#pragma once

// The windows of this thread and the drawing objects of this process: equal counts before and after mean that
// nothing was left behind.
struct GuiObjects {
    int nWindows = 0;
    int nDrawingObjects = 0;
    bool operator==(const GuiObjects&) const = default;
};

GuiObjects CountGuiObjects();
