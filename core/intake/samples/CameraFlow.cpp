#include "core/intake/samples/CameraFlow.h"

#include <opencv2/calib3d.hpp>
#include <opencv2/imgproc.hpp>
#include <opencv2/video/tracking.hpp>

namespace murbo {
namespace {

constexpr int maxCorners = 64;
// More corners are looked for when fewer are left, now and then, or at once when hardly any are. Those that
// agreed so far stay: where near and far move differently, hopping between them would look like shake.
constexpr std::size_t fewCorners = 36;
constexpr std::size_t hardlyAny = 16;
constexpr int picturesToANewLook = 4;
constexpr double cornerQuality = 0.01;      ///< against the best one
constexpr double cornerDistance = 1.0 / 20; ///< of the width: they must not all sit on one face

constexpr int searchWindow = 13; ///< pixels
constexpr int pyramidLevels = 3; ///< reaches about a tenth of the width
const cv::TermCriteria untilFound(cv::TermCriteria::COUNT | cv::TermCriteria::EPS, 12, 0.03);

// The motion that most corners share is the camera's; fewer than this share of them is no majority.
constexpr double agreement = 1.5; ///< pixels
constexpr std::size_t minAgreeing = 8;
constexpr double minAgreeingShare = 0.35;
constexpr double maxScale = 1.5;

// A mean difference that grain alone makes.
constexpr double sameLevels = 1.5;

cv::Mat view(const Luma& luma) {
    return {luma.height, luma.width, CV_8UC1, const_cast<std::uint8_t*>(luma.pixels.data())};
}

bool looksTheSame(const cv::Mat& one, const cv::Mat& other) {
    return cv::norm(one, other, cv::NORM_L1) < sameLevels * static_cast<double>(one.total());
}

using Points = std::vector<cv::Point2f>;

template <class Keep>
void keepOnly(Points& points, Keep keep) {
    std::size_t at = 0;
    std::erase_if(points, [&](const cv::Point2f&) { return !keep[at++]; });
}

CameraFlow::Motion motion(const cv::Mat& fit, const cv::Size& size) {
    const double a = fit.at<double>(0, 0);
    const double b = fit.at<double>(1, 0);
    const double x = (size.width - 1) / 2.0;
    const double y = (size.height - 1) / 2.0;
    return {.across = (a * x - b * y + fit.at<double>(0, 2) - x) / size.width,
            .down = (b * x + a * y + fit.at<double>(1, 2) - y) / size.width,
            .zoom = std::log(std::hypot(a, b)),
            .roll = std::atan2(b, a)};
}

bool isPlausible(const CameraFlow::Motion& motion) {
    return std::isfinite(motion.zoom) && std::abs(motion.zoom) < std::log(maxScale);
}

}

struct CameraFlow::Tracking {
    Luma picture;
    std::vector<cv::Mat> pyramid;
    Points corners;
    int picturesSinceLook = 0;

    cv::Mat here() const { return view(picture); }
    bool fits(const Luma& luma) const {
        return luma.width == picture.width && luma.height == picture.height && !pyramid.empty();
    }
    void look();
    std::optional<Motion> follow(const std::vector<cv::Mat>& next);
    std::optional<Motion> agreed(const Points& from, const Points& to);
};

void CameraFlow::Tracking::look() {
    picturesSinceLook = 0;
    const double distance = picture.width * cornerDistance;
    cv::Mat open(here().size(), CV_8UC1, cv::Scalar(255));
    for (const auto& corner : corners)
        cv::circle(open, corner, static_cast<int>(distance), cv::Scalar(0), cv::FILLED);
    Points more;
    cv::goodFeaturesToTrack(here(), more, maxCorners - static_cast<int>(corners.size()), cornerQuality,
                            distance, open);
    corners.insert(corners.end(), more.begin(), more.end());
}

// Leaves those corners that the camera's motion explains, at their new places.
std::optional<CameraFlow::Motion> CameraFlow::Tracking::follow(const std::vector<cv::Mat>& next) {
    const bool due = ++picturesSinceLook >= picturesToANewLook;
    if (corners.size() < hardlyAny || (due && corners.size() < fewCorners)) look();
    Points from = std::exchange(corners, {});
    if (from.size() < minAgreeing) return std::nullopt;
    Points to;
    std::vector<std::uint8_t> found;
    cv::calcOpticalFlowPyrLK(pyramid, next, from, to, found, cv::noArray(), {searchWindow, searchWindow},
                             pyramidLevels, untilFound);
    keepOnly(from, found);
    keepOnly(to, found);
    if (from.size() < minAgreeing) return std::nullopt;
    return agreed(from, to);
}

std::optional<CameraFlow::Motion> CameraFlow::Tracking::agreed(const Points& from, const Points& to) {
    std::vector<std::uint8_t> agrees;
    const cv::Mat fit = cv::estimateAffinePartial2D(from, to, agrees, cv::RANSAC, agreement, 300, 0.99, 5);
    const auto agreeing = static_cast<std::size_t>(std::count(agrees.begin(), agrees.end(), 1));
    const double needed = std::max(static_cast<double>(from.size()) * minAgreeingShare, double{minAgreeing});
    if (fit.empty() || static_cast<double>(agreeing) < needed) return std::nullopt;
    const Motion moved = motion(fit, here().size());
    if (!isPlausible(moved)) return std::nullopt;
    corners = to;
    keepOnly(corners, agrees);
    return moved;
}

CameraFlow::CameraFlow() : parts(std::make_unique<Tracking>()) {
    // Pictures this small are done before a pool of threads is awake, and sources are measured side by side.
    [[maybe_unused]] static const bool once = (cv::setNumThreads(1), true);
}
CameraFlow::CameraFlow(CameraFlow&&) noexcept = default;
CameraFlow& CameraFlow::operator=(CameraFlow&&) noexcept = default;
CameraFlow::~CameraFlow() = default;

std::optional<CameraFlow::Motion> CameraFlow::to(const Luma& luma) {
    if (luma.empty()) return std::nullopt;
    std::vector<cv::Mat> next;
    cv::buildOpticalFlowPyramid(view(luma), next, {searchWindow, searchWindow}, pyramidLevels);
    std::optional<Motion> moved;
    if (parts->fits(luma)) {
        moved = parts->follow(next);
        if (!moved && looksTheSame(parts->here(), view(luma))) moved = Motion{};
    } else {
        parts->corners.clear();
    }
    parts->picture = luma;
    parts->pyramid = std::move(next);
    return moved;
}

}
