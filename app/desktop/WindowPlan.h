#pragma once

#include <QRectF>

namespace murbo {

/// Where the regions of a project's window lie, in points. Pure.
struct WindowPlan {
    /// What it is made from.
    struct WindowShape {
        double width = 1280;
        double height = 800;
        bool upright = true;   ///< the open video is higher than wide
        bool wantsTall = true; ///< an upright video may take the window's height
        bool inspector = true;
        // What the owner gave the regions, a height and then widths; 0 for the standard.
        double timeline = 0;
        double sidebar = 0;
        double browser = 0;
        double source = 0; ///< beside the video's viewer
        double tall = 0;
        double inspectorWidth = 0;
    };

    static constexpr double bar = 40;
    static constexpr double line = 1; ///< between regions
    static constexpr double minWidth = 1024;
    static constexpr double minHeight = 640;

    bool compact = false; ///< the sidebar is a rail, the menus open from a button
    bool tabs = false;    ///< both viewers share one region
    bool tall = false;
    QRectF sidebar;
    QRectF browser;
    QRectF source; ///< with tabs the same as `video`
    QRectF video;
    QRectF timeline;
    QRectF inspector; ///< empty where it is folded

    static WindowPlan of(const WindowShape& given);
};

}
