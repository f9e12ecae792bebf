#pragma once

#include "app/desktop/ExportSheet.h"
#include "app/desktop/OpenProject.h"
#include "app/desktop/WindowPlan.h"
#include "app/desktop/inspector/InspectorPanel.h"
#include "app/desktop/models/FolderModel.h"

#include <QObject>
#include <memory>

class QQmlContext;
class QQmlEngine;
class QQuickWindow;

namespace murbo {

/// The window of one open project, with all that its views look at.
class ProjectWindow : public QObject {
    Q_OBJECT

public:
    /// `desktop` is what its views know of the program. Throws a Problem where they can't be loaded.
    ProjectWindow(QQmlEngine& engine, QObject& desktop, std::unique_ptr<ProjectDocument> document);
    ~ProjectWindow() override;

    OpenProject& project() { return open; }
    QQuickWindow& window() { return *view; }
    void raise();

    /// Where the regions lie in a window of that size.
    Q_INVOKABLE QVariantMap plan(double width, double height, bool upright, bool wantsTall, bool inspector,
                                 double timeline) const;

signals:
    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    OpenProject open;
    ExportSheet exportSheet;
    InspectorPanel inspectorPanel;
    FolderModel folders;
    std::unique_ptr<QQmlContext> context;
    std::unique_ptr<QQuickWindow> view;
};

}
