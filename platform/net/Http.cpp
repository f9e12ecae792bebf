#include "platform/net/Http.h"

#include "platform/base/Cancelled.h"
#include "platform/base/Problem.h"

#include <memory>

#include <curl/curl.h>
#include <fmt/format.h>

namespace murbo {
namespace {

using Clock = std::chrono::steady_clock;

constexpr long connectSeconds = 30;
constexpr int pollMilliseconds = 250;

struct Free {
    void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
struct FreeMulti {
    void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};

/// The library's own state, once a process.
void prepare() {
    static const bool prepared = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    if (!prepared) throw Problem("The network can't be used.");
}

std::string part(CURLU* url, CURLUPart which) {
    char* text = nullptr;
    if (curl_url_get(url, which, &text, 0) != CURLUE_OK) return "";
    const std::unique_ptr<char, decltype(&curl_free)> owned(text, curl_free);
    return text;
}

struct Address {
    std::string scheme, host;

    explicit Address(const std::string& text) {
        prepare();
        const std::unique_ptr<CURLU, Free> url(curl_url());
        // An address with a blank or a line break in it is none.
        if (!url || curl_url_set(url.get(), CURLUPART_URL, text.c_str(), 0) != CURLUE_OK) return;
        scheme = part(url.get(), CURLUPART_SCHEME);
        host = part(url.get(), CURLUPART_HOST);
    }
    bool isHere() const { return host == "127.0.0.1" || host == "[::1]" || host == "localhost"; }
    bool isFit() const { return !host.empty() && (scheme == "https" || (scheme == "http" && isHere())); }
};

/// A request under way.
class HttpTransfer {
public:
    HttpTransfer(const Http::Outgoing& given, const Address& address) : request(given), host(address.host) {
        if (!easy || !multi) throw Problem("The network can't be used.");
        for (const auto& line : request.headers) addHeader(line);
        addHeader("Expect:"); // no round trip before the body
        set(CURLOPT_URL, request.url.c_str());
        set(CURLOPT_PROTOCOLS_STR, address.scheme.c_str());
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_CONNECTTIMEOUT, connectSeconds);
        set(CURLOPT_HTTPHEADER, headers.get());
        set(CURLOPT_ACCEPT_ENCODING, "");
        if (address.isHere()) set(CURLOPT_PROXY, "");
        setBody();
        setWatch();
        curl_multi_add_handle(multi.get(), easy.get());
    }
    HttpTransfer(const HttpTransfer&) = delete;
    ~HttpTransfer() {
        if (easy && multi) curl_multi_remove_handle(multi.get(), easy.get());
    }

    Http::Reply run(const std::stop_token& stop) {
        const std::stop_callback wake(stop, [this] { curl_multi_wakeup(multi.get()); });
        for (int running = 1; running > 0;) {
            if (stop.stop_requested()) throw Cancelled();
            checkTime();
            curl_multi_perform(multi.get(), &running);
            if (running > 0) curl_multi_poll(multi.get(), nullptr, 0, pollMilliseconds, nullptr);
        }
        return finished();
    }

private:
    template <class Value>
    void set(CURLoption option, Value value) {
        if (curl_easy_setopt(easy.get(), option, value) != CURLE_OK)
            throw Problem("The network can't be used.");
    }

    void addHeader(const std::string& line) {
        if (line.find_first_of("\r\n") != line.npos)
            throw Problem("A request's header can't hold a line break.");
        auto* longer = curl_slist_append(headers.get(), line.c_str());
        if (!longer) throw std::bad_alloc();
        headers.release();
        headers.reset(longer);
    }

    void setBody() {
        if (request.body.empty()) return;
        set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.body.size()));
        set(CURLOPT_POSTFIELDS, request.body.data());
    }

    void setWatch() {
        set(CURLOPT_WRITEFUNCTION, &HttpTransfer::take);
        set(CURLOPT_WRITEDATA, this);
        set(CURLOPT_NOPROGRESS, 0L);
        set(CURLOPT_XFERINFOFUNCTION, &HttpTransfer::watch);
        set(CURLOPT_XFERINFODATA, this);
    }

    static std::size_t take(char* bytes, std::size_t size, std::size_t count, void* self) {
        auto& transfer = *static_cast<HttpTransfer*>(self);
        transfer.tooLong = transfer.reply.body.size() + size * count > transfer.request.maxBytes;
        if (transfer.tooLong) return 0;
        transfer.reply.body.append(bytes, size * count);
        return size * count;
    }

    static int watch(void* self, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up) {
        auto& transfer = *static_cast<HttpTransfer*>(self);
        if (down + up != transfer.moved) transfer.movedAt = Clock::now();
        transfer.moved = down + up;
        return 0;
    }

    void checkTime() const {
        const auto now = Clock::now();
        if (now - movedAt > request.timeout || now - started > request.longest)
            throw Problem(host + " did not answer in time.");
    }

    Http::Reply finished() {
        int left = 0;
        const auto* message = curl_multi_info_read(multi.get(), &left);
        const auto result = message ? message->data.result : CURLE_RECV_ERROR;
        if (tooLong) throw Problem(host + " sent too long an answer.");
        if (result != CURLE_OK)
            throw Problem(fmt::format("{} could not be reached: {}.", host, curl_easy_strerror(result)));
        long status = 0;
        curl_easy_getinfo(easy.get(), CURLINFO_RESPONSE_CODE, &status);
        reply.status = static_cast<int>(status);
        return std::move(reply);
    }

    const Http::Outgoing& request;
    const std::string host;
    std::unique_ptr<curl_slist, Free> headers;
    std::unique_ptr<CURL, Free> easy{curl_easy_init()};
    std::unique_ptr<CURLM, FreeMulti> multi{curl_multi_init()};
    Http::Reply reply;
    bool tooLong = false;
    curl_off_t moved = 0;
    const Clock::time_point started = Clock::now();
    Clock::time_point movedAt = started;
};

}

bool Http::mayGoTo(const std::string& url) {
    return Address(url).isFit();
}

Http::Reply Http::send(const Outgoing& request, std::stop_token stop) {
    const Address address(request.url);
    if (!address.isFit()) throw Problem("Nothing is sent to " + request.url + ": it is no HTTPS address.");
    return HttpTransfer(request, address).run(stop);
}

}
