#pragma once

#include "core/model/Values.h"
#include "platform/base/Field.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace murbo {

/// A small motion-graphics clip written as JSON: a sticker, a title card, a transition, a way to frame a
/// shot. Pure data: nothing in it runs. All that may be missing in the JSON is an optional here.
struct Playbook {
    /// A number that may depend on parameters: 0.5, "$split", "1-$split".
    class Num {
    public:
        Num(double given) : form(given) {}

        /// Reads the text form: a whole parameter or an expression that could have a value. Nothing
        /// otherwise.
        static std::optional<Num> parse(const std::string& text);

        /// The number with those parameters filled in; nothing where one of them is no number.
        std::optional<double> value(const Values& values) const;

        /// What it was read from: a number, or a text.
        using Form = std::variant<double, std::string>;
        const Form& json() const { return form; }

        bool operator==(const Num&) const = default;

    private:
        explicit Num(std::string text) : form(std::move(text)) {}
        Form form;
    };

    /// Seconds of entrance and exit.
    struct Timing {
        std::optional<double> enter;
        std::optional<double> exit;

        bool operator==(const Timing&) const = default;
        static constexpr auto fields(auto visit) {
            return visit(field("in", &Timing::enter), field("out", &Timing::exit));
        }
    };

    /// What is filled in for each placement. Values are texts, also of numbers and toggles.
    struct Param {
        std::string type;
        std::optional<std::string> label;
        std::optional<std::string> value; ///< the default
        std::optional<std::vector<std::string>> options;
        std::optional<double> min;
        std::optional<double> max;

        bool operator==(const Param&) const = default;
        static constexpr auto fields(auto visit) {
            return visit(field("type", &Param::type), field("label", &Param::label),
                         field("value", &Param::value), field("options", &Param::options),
                         field("min", &Param::min), field("max", &Param::max));
        }
    };

    /// A key frame, reached from the one before by its ease.
    struct Key {
        double t = 0; ///< seconds of the natural length
        std::optional<double> x;
        std::optional<double> y;
        std::optional<double> scale;
        std::optional<double> rotation; ///< degrees clockwise
        std::optional<double> opacity;
        std::optional<std::string> ease;

        bool operator==(const Key&) const = default;
        static constexpr auto fields(auto visit) {
            return visit(field("t", &Key::t), field("x", &Key::x), field("y", &Key::y),
                         field("scale", &Key::scale), field("rotation", &Key::rotation),
                         field("opacity", &Key::opacity), field("ease", &Key::ease));
        }
    };

    /// One layer. Exactly one of the first seven members says what it is.
    struct Layer {
        std::optional<std::string> image;
        std::optional<std::string> video;
        std::optional<std::string> text;
        std::optional<std::string> shape;
        std::optional<std::string> particles; ///< emoji or letters, comma-separated, or "confetti"
        std::optional<std::string> slot;
        std::optional<std::string> sound;
        std::optional<Num> x; ///< centre, shares of the frame from its top left
        std::optional<Num> y;
        std::optional<Num> w; ///< share of the frame's width
        std::optional<Num> h;
        std::optional<bool> fill; ///< cover the frame
        std::optional<Num> scale;
        std::optional<Num> rotation; ///< degrees clockwise
        std::optional<Num> opacity;
        std::optional<std::string> color; ///< RRGGBB or a parameter
        std::optional<std::string> gradient;
        std::optional<double> radius; ///< share of the shorter side
        std::optional<Num> size;      ///< of text, points at a frame whose short side is 1080
        std::optional<std::string> style;
        std::optional<std::string> outline;
        std::optional<std::string> box;
        std::optional<std::string> blend;
        std::optional<double> from; ///< seconds of the natural length
        std::optional<double> to;
        std::optional<std::string> enter;
        std::optional<std::string> hold;
        std::optional<std::string> exit;
        std::optional<std::vector<Key>> keys;
        std::optional<bool> loop;
        std::optional<bool> bounce;
        std::optional<double> speed;
        std::optional<std::string> key; ///< a green-screen colour to take out
        std::optional<bool> cutout;
        std::optional<bool> shot; ///< a panel takes the shot's zoom, move and position
        std::optional<std::vector<std::string>> effects;
        std::optional<std::int64_t> count;
        std::optional<std::int64_t> seed;
        std::optional<std::string> drift;
        std::optional<double> volume; ///< 0 to 1
        std::optional<double> start;  ///< seconds in the file

        bool operator==(const Layer&) const = default;
        static constexpr auto fields(auto visit) {
            return visit(
                field("image", &Layer::image), field("video", &Layer::video), field("text", &Layer::text),
                field("shape", &Layer::shape), field("particles", &Layer::particles),
                field("slot", &Layer::slot), field("sound", &Layer::sound), field("x", &Layer::x),
                field("y", &Layer::y), field("w", &Layer::w), field("h", &Layer::h),
                field("fill", &Layer::fill), field("scale", &Layer::scale),
                field("rotation", &Layer::rotation), field("opacity", &Layer::opacity),
                field("color", &Layer::color), field("gradient", &Layer::gradient),
                field("radius", &Layer::radius), field("size", &Layer::size), field("style", &Layer::style),
                field("outline", &Layer::outline), field("box", &Layer::box), field("blend", &Layer::blend),
                field("from", &Layer::from), field("to", &Layer::to), field("in", &Layer::enter),
                field("hold", &Layer::hold), field("out", &Layer::exit), field("keys", &Layer::keys),
                field("loop", &Layer::loop), field("bounce", &Layer::bounce), field("speed", &Layer::speed),
                field("key", &Layer::key), field("cutout", &Layer::cutout), field("shot", &Layer::shot),
                field("effects", &Layer::effects), field("count", &Layer::count), field("seed", &Layer::seed),
                field("drift", &Layer::drift), field("volume", &Layer::volume),
                field("start", &Layer::start));
        }
    };

    std::optional<std::string> id;
    std::optional<std::string> kind; ///< none is an overlay; else "layout" or "generator"
    std::string name;
    std::optional<std::int64_t> version;
    std::optional<std::string> about;
    std::optional<double> length; ///< natural seconds
    std::optional<Timing> timing;
    std::optional<bool> cover; ///< drawn over the captions too
    std::optional<bool> mute;  ///< the video's own sound is silent under it by default
    std::optional<Num> captions;
    std::optional<std::map<std::string, Param>> params;
    std::vector<Layer> layers; ///< bottom to top

    /// The one way from bytes to a playbook. Throws a Problem with every fault of its words, or with the
    /// first of its types. At most `maxBytes` of JSON are read.
    static Playbook decode(std::string_view json);
    static constexpr std::size_t maxBytes = std::size_t{4} << 20;

    /// The value of a number expression over parameters: + - * / and brackets, white space passed over. A
    /// division by 0 divides by 1. A parameter that is no number has no value, or counts as 1 where not
    /// `strict`. Nothing for any other text.
    static std::optional<double> evaluate(std::string_view text, const Values& values, bool strict);

    double naturalLength() const; ///< seconds, at least 0.2
    double enterLength() const;   ///< seconds, at most half of the natural length
    double exitLength() const;
    bool layered() const { return kind == "generator"; }

    bool operator==(const Playbook&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Playbook::id), field("kind", &Playbook::kind),
                     field("name", &Playbook::name), field("version", &Playbook::version),
                     field("about", &Playbook::about), field("length", &Playbook::length),
                     field("timing", &Playbook::timing), field("cover", &Playbook::cover),
                     field("mute", &Playbook::mute), field("captions", &Playbook::captions),
                     field("params", &Playbook::params), field("layers", &Playbook::layers));
    }
};

}
