#pragma once

#include "app/desktop/ClosingQuestion.h"
#include "app/desktop/OpenProject.h"
#include "app/desktop/SplitterSizes.h"
#include "app/desktop/WindowPlan.h"
#include "app/desktop/access/Announcer.h"
#include "app/desktop/captions/CaptionTimes.h"
#include "app/desktop/captions/CaptionsPage.h"
#include "app/desktop/documents/CopySheet.h"
#include "app/desktop/documents/HistorySheet.h"
#include "app/desktop/exports/DeliveryCheck.h"
#include "app/desktop/exports/ExportSheet.h"
#include "app/desktop/footage/FootageSheet.h"
#include "app/desktop/footage/StreamSheet.h"
#include "app/desktop/inspector/Inspection.h"
#include "app/desktop/inspector/InspectorPanel.h"
#include "app/desktop/inspector/InspectorPictures.h"
#include "app/desktop/libraries/LibraryModel.h"
#include "app/desktop/models/FolderModel.h"
#include "app/desktop/models/MediaArrivals.h"
#include "app/desktop/settings/CaptionFonts.h"
#include "app/desktop/settings/SettingsSheet.h"
#include "app/desktop/timeline/TimelineAppearance.h"
#include "app/desktop/transcript/TranscriptPage.h"
#include "app/desktop/viewer/Eyedropper.h"
#include "app/desktop/viewer/HeldFootage.h"
#include "app/desktop/viewer/ViewerAids.h"

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
    /// Without `sound` nothing of the library is heard.
    ProjectWindow(QQmlEngine& engine, QObject& desktop, std::unique_ptr<ProjectDocument> document,
                  const SoundPlayer::MakeOutput& sound = {});
    ~ProjectWindow() override;

    OpenProject& project() { return open; }
    TranscriptPage& transcriptPage() { return transcript; }
    Inspection& inspected() { return inspection; }
    FootageSheet& footage() { return footageSheet; }
    MediaArrivals& arriving() { return arrivals; }
    CaptionsPage& captionsPage() { return captions; }
    QQuickWindow& window() { return *view; }
    void raise();
    /// Whether something that its views show is still being drawn or listened to.
    bool awaitsPictures();

    /// Takes files that were handed over: footage into the sheet that is open for it, else into the one that
    /// it is for; pictures and sounds into the video, at the playhead.
    Q_INVOKABLE void takeFootage(const QStringList& paths);

    /// Where the regions lie in a window of that size.
    Q_INVOKABLE QVariantMap plan(double width, double height, bool upright, bool wantsTall,
                                 bool inspector) const;

signals:
    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    OpenProject open;
    MediaArrivals arrivals;
    ExportSheet exportSheet;
    InspectorPanel inspectorPanel;
    HistorySheet historySheet;
    CopySheet copySheet;
    FootageSheet footageSheet;
    StreamSheet streamSheet;
    SettingsSheet settingsSheet;
    CaptionFonts captionFonts{settingsSheet};
    LibraryModel library;
    ClosingQuestion closing;
    TranscriptPage transcript;
    CaptionsPage captions;
    CaptionTimes captionTimes;
    Inspection inspection;
    InspectorPictures inspectorPictures;
    FolderModel folders;
    HeldFootage heldFootage;
    ViewerAids viewerAids;
    DeliveryCheck deliveryCheck;
    TimelineAppearance timelineAppearance;
    SplitterSizes splitters;
    Eyedropper eyedropper;
    Announcer announcer;
    std::unique_ptr<QQmlContext> context;
    std::unique_ptr<QQuickWindow> view;
};

}
