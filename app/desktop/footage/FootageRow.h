#pragma once

#include "core/intake/MeasuredFile.h"

#include <QString>
#include <filesystem>

namespace murbo {

/// One file that may come in as footage, as it is listed before that.
struct FootageRow {
    std::filesystem::path path;
    QString name;
    QString size;      ///< on disk, in words
    double length = 0; ///< seconds; 0 until it is known
    QString detail;    ///< what is worth knowing of it: "1920 × 1080 · 60 fps · variable rate"
    QString problem;   ///< why it can't come in; empty where it can
    bool looked = false;

    bool canComeIn() const { return looked && problem.isEmpty(); }

    /// A file as its name and the folder say; nothing of it is read.
    static FootageRow of(const std::filesystem::path& file);
    /// Reads the file's facts, or why they can't be had.
    void look();
};

}
