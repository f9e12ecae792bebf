#include "platform/store/Keychain.h"

#include "platform/base/Text.h"

#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <mutex>
#include <thread>

#include <libsecret/secret.h>

namespace murbo {
namespace {

constexpr auto patience = std::chrono::seconds(30);
constexpr const char* service = "io.dwex.murbo";
constexpr const char* account = "openrouter";

const SecretSchema schema = {
    service,
    SECRET_SCHEMA_NONE,
    {{"service", SECRET_SCHEMA_ATTRIBUTE_STRING}, {"account", SECRET_SCHEMA_ATTRIBUTE_STRING}, {}},
    0,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr};

struct SecretRelease {
    void operator()(GCancellable* object) const { g_object_unref(object); }
};

/// Cancels a call to the keyring that takes too long: a bus may be there and nobody on it answer.
class Patience {
public:
    Patience() : waiting([this](std::stop_token stop) { wait(stop); }) {}
    GCancellable* cancellable() const { return cancel.get(); }

private:
    void wait(const std::stop_token& stop) {
        std::unique_lock lock(guard);
        const auto ended = [&] { return stop.stop_requested(); };
        if (!over.wait_for(lock, stop, patience, ended)) g_cancellable_cancel(cancel.get());
    }

    std::unique_ptr<GCancellable, SecretRelease> cancel{g_cancellable_new()};
    std::mutex guard;
    std::condition_variable_any over;
    std::jthread waiting;
};

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// Whether there is a keyring to ask. Without a session's bus the library would try to start one.
bool mayBeThere() {
    if (environment("SECRET_BACKEND") == "file") return true;
    if (!environment("DBUS_SESSION_BUS_ADDRESS").empty()) return true;
    std::error_code error;
    const auto session = environment("XDG_RUNTIME_DIR");
    return !session.empty() && std::filesystem::exists(session + "/bus", error);
}

std::optional<std::string> kept() {
    if (!mayBeThere()) return std::nullopt;
    const Patience limit;
    const std::unique_ptr<gchar, decltype(&secret_password_free)> found(
        secret_password_lookup_sync(&schema, limit.cancellable(), nullptr, "service", service, "account",
                                    account, nullptr),
        &secret_password_free);
    if (!found || !Text::isUtf8(found.get())) return std::nullopt;
    const auto key = Text::trimmed(found.get());
    return key.empty() ? std::nullopt : std::optional(key);
}

}

std::optional<std::string> Keychain::openRouter() {
    const auto given = environment("OPENROUTER_API_KEY");
    return given.empty() ? kept() : given;
}

void Keychain::keepOpenRouter(const std::string& key) {
    if (!mayBeThere()) return;
    const Patience limit;
    secret_password_clear_sync(&schema, limit.cancellable(), nullptr, "service", service, "account", account,
                               nullptr);
    const auto trimmed = Text::trimmed(key);
    if (trimmed.empty()) return;
    secret_password_store_sync(&schema, SECRET_COLLECTION_DEFAULT, "Murbo: OpenRouter key", trimmed.c_str(),
                               limit.cancellable(), nullptr, "service", service, "account", account, nullptr);
}

}
