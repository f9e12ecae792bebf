#include "core/intake/SourceFinder.h"
#include "core/intake/Sources.h"
#include "core/model/Project.h"
#include "tests/TemporaryFolder.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre;

TEST(SourceFinder, looksAtThePathAloneAndChangesNothing) {
    const TemporaryFolder folder;
    Project project;
    Sources::add(project, {{folder.file("here.mp4"), 1}, {folder / "gone.mp4", 1}}, "g", Source::Kind::file);
    project.sources.edit()[1].bookmark = Data{"opaque"};
    const auto before = project;
    EXPECT_THAT(SourceFinder::find(project), ElementsAre(project.sources[1].id));
    EXPECT_EQ(project, before);
    EXPECT_FALSE(SourceFinder::find(Source{.path = std::string(100'000, 'x')}));
}
