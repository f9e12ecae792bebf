#pragma once

#include "app/editor/EditingTool.h"
#include "app/editor/Inspecting.h"
#include "app/editor/InspectorTab.h"
#include "app/editor/Pick.h"
#include "app/editor/SidebarPick.h"
#include "app/editor/TrimEdge.h"
#include "app/editor/Viewer.h"
#include "core/model/Monitoring.h"
#include "core/model/Stretch.h"
#include "platform/base/UUID.h"

#include <QObject>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace murbo {

/// What a window shows of a session beside the project itself: what is held, picked, open and chosen. Each
/// field notifies once when it has really changed, and never otherwise.
class EditorFields : public QObject {
    Q_OBJECT
    Q_PROPERTY(std::set<murbo::UUID> missing READ missing NOTIFY missingChanged)
    Q_PROPERTY(murbo::SidebarPick sidebar READ sidebar WRITE setSidebar NOTIFY sidebarChanged)
    Q_PROPERTY(std::optional<murbo::UUID> heldClip READ heldClip NOTIFY heldClipChanged)
    Q_PROPERTY(std::optional<murbo::UUID> heldSource READ heldSource NOTIFY heldSourceChanged)
    Q_PROPERTY(
        std::vector<murbo::UUID> pickedClips READ pickedClips WRITE setPickedClips NOTIFY pickedClipsChanged)
    Q_PROPERTY(std::optional<murbo::Stretch> range READ range WRITE setRange NOTIFY rangeChanged)
    Q_PROPERTY(std::optional<murbo::Pick> picked READ picked WRITE setPicked NOTIFY pickedChanged)
    Q_PROPERTY(
        std::vector<murbo::Pick> morePicked READ morePicked WRITE setMorePicked NOTIFY morePickedChanged)
    Q_PROPERTY(murbo::Inspecting inspecting READ inspecting WRITE setInspecting NOTIFY inspectingChanged)
    Q_PROPERTY(std::optional<murbo::UUID> openVideo READ openVideo NOTIFY openVideoChanged)
    Q_PROPERTY(murbo::EditingTool tool READ tool WRITE setTool NOTIFY toolChanged)
    Q_PROPERTY(bool framing READ framing WRITE setFraming NOTIFY framingChanged)
    Q_PROPERTY(bool skimming READ skimming WRITE setSkimming NOTIFY skimmingChanged)
    Q_PROPERTY(bool snapping READ snapping WRITE setSnapping NOTIFY snappingChanged)
    Q_PROPERTY(double zoom READ zoom WRITE setZoom NOTIFY zoomChanged)
    Q_PROPERTY(murbo::Monitoring monitoring READ monitoring NOTIFY monitoringChanged)
    Q_PROPERTY(bool headers READ headers WRITE setHeaders NOTIFY headersChanged)
    Q_PROPERTY(murbo::Viewer focus READ focus WRITE setFocus NOTIFY focusChanged)
    Q_PROPERTY(
        murbo::InspectorTab inspectorTab READ inspectorTab WRITE setInspectorTab NOTIFY inspectorTabChanged)
    Q_PROPERTY(std::string asking READ asking WRITE setAsking NOTIFY askingChanged)
    Q_PROPERTY(std::optional<std::string> toast READ toast WRITE setToast NOTIFY toastChanged)
    Q_PROPERTY(std::optional<murbo::TrimEdge> edge READ edge WRITE setEdge NOTIFY edgeChanged)
    Q_PROPERTY(std::optional<murbo::TrimEdge> edgeAfter READ edgeAfter WRITE setEdgeAfter NOTIFY edgeChanged)
    Q_PROPERTY(std::optional<std::string> problem READ problem NOTIFY problemChanged)

public:
    const std::set<UUID>& missing() const { return values.missing; } ///< sources whose file can't be found
    const SidebarPick& sidebar() const { return values.sidebar; }
    std::optional<UUID> heldClip() const { return values.heldClip; }            ///< open on the source player
    std::optional<UUID> heldSource() const { return values.heldSource; }        ///< open on the source player
    const std::vector<UUID>& pickedClips() const { return values.pickedClips; } ///< in order of picking
    std::optional<Stretch> range() const { return values.range; }               ///< marked on the held source
    std::optional<Pick> picked() const { return values.picked; }
    const std::vector<Pick>& morePicked() const { return values.morePicked; }
    Inspecting inspecting() const { return values.inspecting; }
    std::optional<UUID> openVideo() const { return values.openVideo; } ///< the video on the timeline
    EditingTool tool() const { return values.tool; }
    bool framing() const { return values.framing; } ///< the framing overlay is up
    bool skimming() const { return values.skimming; }
    bool snapping() const { return values.snapping; }
    double zoom() const { return values.zoom; } ///< of the timeline
    const Monitoring& monitoring() const { return values.monitoring; }
    bool headers() const { return values.headers; } ///< of the timeline's tracks
    Viewer focus() const { return values.focus; }
    InspectorTab inspectorTab() const { return values.inspectorTab; }
    const std::string& asking() const { return values.asking; } ///< the text in the request box
    const std::optional<std::string>& toast() const { return values.toast; }
    std::optional<TrimEdge> edge() const { return values.edge; }
    /// Of a seam that is rolled: what comes after it.
    std::optional<TrimEdge> edgeAfter() const { return values.edgeAfter; }
    const std::optional<std::string>& problem() const {
        return values.problem;
    } ///< why the video can't be shown

    void setSidebar(const SidebarPick& pick) { set(values.sidebar, pick, &EditorFields::sidebarChanged); }
    void setPickedClips(std::vector<UUID> clips) {
        set(values.pickedClips, std::move(clips), &EditorFields::pickedClipsChanged);
    }
    void setRange(std::optional<Stretch> range) { set(values.range, range, &EditorFields::rangeChanged); }
    void setPicked(std::optional<Pick> pick) { set(values.picked, pick, &EditorFields::pickedChanged); }
    void setMorePicked(std::vector<Pick> picks) {
        set(values.morePicked, std::move(picks), &EditorFields::morePickedChanged);
    }
    void setInspecting(Inspecting side) { set(values.inspecting, side, &EditorFields::inspectingChanged); }
    void setTool(EditingTool tool) { set(values.tool, tool, &EditorFields::toolChanged); }
    void setFraming(bool up) { set(values.framing, up, &EditorFields::framingChanged); }
    /// This and the two like it are kept in the settings.
    void setSkimming(bool on) { keep("skimming", values.skimming, on, &EditorFields::skimmingChanged); }
    void setSnapping(bool on) { keep("snapping", values.snapping, on, &EditorFields::snappingChanged); }
    void setHeaders(bool on) { keep("trackHeaders", values.headers, on, &EditorFields::headersChanged); }
    void setZoom(double zoom) { set(values.zoom, zoom, &EditorFields::zoomChanged); }
    void setFocus(Viewer viewer) { set(values.focus, viewer, &EditorFields::focusChanged); }
    void setInspectorTab(InspectorTab tab) {
        set(values.inspectorTab, tab, &EditorFields::inspectorTabChanged);
    }
    void setAsking(const std::string& text) { set(values.asking, text, &EditorFields::askingChanged); }
    void setToast(const std::optional<std::string>& text) {
        set(values.toast, text, &EditorFields::toastChanged);
    }
    void setEdge(std::optional<TrimEdge> edge) { set(values.edge, edge, &EditorFields::edgeChanged); }
    void setEdgeAfter(std::optional<TrimEdge> edge) {
        set(values.edgeAfter, edge, &EditorFields::edgeChanged);
    }

signals:
    void missingChanged();
    void sidebarChanged();
    void heldClipChanged();
    void heldSourceChanged();
    void pickedClipsChanged();
    void rangeChanged();
    void pickedChanged();
    void morePickedChanged();
    void inspectingChanged();
    void openVideoChanged();
    void toolChanged();
    void framingChanged();
    void skimmingChanged();
    void snappingChanged();
    void zoomChanged();
    void monitoringChanged();
    void headersChanged();
    void focusChanged();
    void inspectorTabChanged();
    void askingChanged();
    void toastChanged();
    void edgeChanged();
    void problemChanged();

protected:
    explicit EditorFields(QObject* parent);

    struct Values {
        std::set<UUID> missing;
        SidebarPick sidebar;
        std::optional<UUID> heldClip;
        std::optional<UUID> heldSource;
        std::vector<UUID> pickedClips;
        std::optional<Stretch> range;
        std::optional<Pick> picked;
        std::vector<Pick> morePicked;
        Inspecting inspecting = Inspecting::timeline;
        std::optional<UUID> openVideo;
        EditingTool tool = EditingTool::select;
        bool framing = false;
        bool skimming = true;
        bool snapping = true;
        double zoom = 1;
        Monitoring monitoring;
        bool headers = true;
        Viewer focus = Viewer::video;
        InspectorTab inspectorTab = InspectorTab::inspector;
        std::string asking;
        std::optional<std::string> toast;
        std::optional<TrimEdge> edge;
        std::optional<TrimEdge> edgeAfter;
        std::optional<std::string> problem;
    };
    Values values;

    template <class T>
    void set(T& field, T value, void (EditorFields::*changed)()) {
        if (field == value) return;
        field = std::move(value);
        (this->*changed)();
    }

private:
    void keep(const char* key, bool& field, bool value, void (EditorFields::*changed)());
};

}
