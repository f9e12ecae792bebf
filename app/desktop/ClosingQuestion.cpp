#include "app/desktop/ClosingQuestion.h"

#include "app/desktop/OpenProject.h"

namespace murbo {

ClosingQuestion::ClosingQuestion(OpenProject& open, QObject* parent) : QObject(parent), project(open) {
    connect(&project, &OpenProject::workChanged, this, [this] {
        if (!project.editor().work.isRunning())
            working.invalidate();
        else if (!working.isValid())
            working.start();
    });
}

QString ClosingQuestion::loss() const {
    const auto& exports = *project.exports();
    if (exports.running() && exports.waiting() > 0)
        return QString("“%1” and %2 more are being exported. Nothing of them is kept if you close now.")
            .arg(exports.title())
            .arg(exports.waiting());
    if (exports.running())
        return QString("“%1” is being exported. Nothing of it is kept if you close now.")
            .arg(exports.title());
    if (!project.unsaved().isEmpty())
        return project.unsaved() + " What is not on disk is lost if you close now.";
    if (working.isValid() && working.hasExpired(patience))
        return QString("%1 is under way. What it has finished is kept; the rest stops if you close now.")
            .arg(project.workLabel());
    return "";
}

bool ClosingQuestion::mayClose() {
    if (yes) return true;
    text = loss();
    if (text.isEmpty()) return true;
    emit asked();
    project.setSheet("closing");
    return false;
}

void ClosingQuestion::agree() {
    yes = true;
    emit agreed();
}

}
