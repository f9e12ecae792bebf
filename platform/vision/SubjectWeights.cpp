#include "platform/vision/SubjectWeights.h"

#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/vision/GraphFile.h"

#include <cstdlib>
#include <filesystem>

namespace murbo {

namespace {

namespace files = std::filesystem;

files::path folder() {
    std::vector<files::path> places;
    if (const char* named = std::getenv("MURBO_SUBJECT"); named && *named) places.emplace_back(named);
    std::error_code error;
    const files::path program = files::read_symlink("/proc/self/exe", error).parent_path();
    places.push_back(program / "subject");
    places.push_back(program.parent_path() / "share" / "murbo" / "subject");
    for (const auto& place : places)
        if (files::is_directory(place, error)) return place;
    return {};
}

Graph readGraph(const files::path& file) {
    Graph graph = GraphFile::read(Files::readWhole(file, GraphFile::maxBytes));
    const auto& from = graph.values[std::size_t(graph.input)];
    const auto& to = graph.values[std::size_t(graph.output)];
    if (from.channels != 3 || to != Graph::Shape{from.height, from.width, 1} || from.height < 16 ||
        from.width < 16)
        throw Problem("The network can't be used: it turns no picture into a mask.");
    return graph;
}

std::unique_ptr<const SubjectWeights::Networks> read(const files::path& folder) {
    try {
        return std::unique_ptr<const SubjectWeights::Networks>(new SubjectWeights::Networks{
            Network(readGraph(folder / "square.tflite")), Network(readGraph(folder / "landscape.tflite"))});
    } catch (const Problem&) {
        return nullptr;
    }
}

}

const SubjectWeights::Networks* SubjectWeights::networks() {
    static const auto found = read(folder());
    return found.get();
}

}
