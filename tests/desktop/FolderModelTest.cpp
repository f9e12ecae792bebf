#include "app/desktop/models/FolderModel.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(FolderModel, listsWhatCanBeChosenAsPeopleWouldPutIt) {
    const TemporaryFolder folder;
    for (const auto* name : {"clip 10.mp4", "clip 2.MOV", "notes.txt", ".hidden.mp4", "b/x.mp4", "map.png",
                             "p.mbproj/project.json"})
        folder.file(name);
    FolderModel model;
    model.setProperty("wanted", "movies");
    model.setFolder(QString::fromStdString(folder.path));
    std::vector<std::string> names;
    for (const auto& row : model.rows()) names.push_back(row.name.toStdString());
    EXPECT_EQ(names, (std::vector<std::string>{"b", "p.mbproj", "clip 2.MOV", "clip 10.mp4"}));
    EXPECT_TRUE(model.isFolder(0));
    EXPECT_FALSE(model.isFolder(1)) << "a project is one thing";
    model.setFolder(model.pathOf(0));
    EXPECT_EQ(model.rowCount(), 1);
    model.up();
    EXPECT_EQ(model.rowCount(), 4);
    model.setProperty("wanted", "media");
    EXPECT_EQ(model.rowCount(), 5) << "a picture will do";
    model.setFolder("/nowhere at all");
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(model.problem().isEmpty());
}
