#include "platform/text/Distance.h"

namespace murbo::Distance {

namespace {

constexpr float far = 1e12F;

/// Squared distances along one line of `count` squared distances, `step` apart: the lower envelope of the
/// parabolas that stand on them.
class LineTransform {
public:
    explicit LineTransform(int longest)
        : values(std::size_t(longest)), apexes(std::size_t(longest)), starts(std::size_t(longest)) {}

    void transform(float* line, int count, std::ptrdiff_t step) {
        for (int at = 0; at < count; ++at) values[std::size_t(at)] = line[at * step];
        const int parabolas = envelope(count);
        for (int at = 0, parabola = 0; at < count; ++at) {
            while (parabola + 1 < parabolas && starts[std::size_t(parabola) + 1] < float(at)) ++parabola;
            const int apex = apexes[std::size_t(parabola)];
            line[at * step] = float((at - apex) * (at - apex)) + values[std::size_t(apex)];
        }
    }

private:
    std::vector<float> values;
    std::vector<int> apexes;
    std::vector<float> starts; ///< where each parabola begins to be the lowest

    int envelope(int count) {
        int last = 0;
        apexes[0] = 0;
        starts[0] = -far;
        for (int at = 1; at < count; ++at) {
            float start = crossing(apexes[std::size_t(last)], at);
            while (start <= starts[std::size_t(last)]) start = crossing(apexes[std::size_t(--last)], at);
            ++last;
            apexes[std::size_t(last)] = at;
            starts[std::size_t(last)] = start;
        }
        return last + 1;
    }

    float crossing(int a, int b) const {
        const float lift = (values[std::size_t(b)] + float(b * b)) - (values[std::size_t(a)] + float(a * a));
        return std::max(lift / float(2 * (b - a)), -far / 2);
    }
};

}

std::vector<std::uint8_t> grown(const std::vector<std::uint8_t>& mask, int width, int height, double radius) {
    // A half-covered pixel lies half a pixel outside: so edges keep their place between the pixels.
    std::vector<float> distances(mask.size());
    for (std::size_t at = 0; at < mask.size(); ++at) {
        const float outside = 1 - float(mask[at]) / 255;
        distances[at] = mask[at] < 16 ? far : outside * outside;
    }
    LineTransform line(std::max(width, height));
    for (int x = 0; x < width; ++x) line.transform(distances.data() + x, height, width);
    for (int y = 0; y < height; ++y) line.transform(distances.data() + std::ptrdiff_t(y) * width, width, 1);
    std::vector<std::uint8_t> result(mask.size());
    for (std::size_t at = 0; at < mask.size(); ++at) {
        const float inside = float(radius) + 1 - std::sqrt(distances[at]);
        result[at] = std::uint8_t(std::clamp(inside, 0.F, 1.F) * 255 + 0.5F);
    }
    return result;
}

}
