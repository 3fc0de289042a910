#include "ui/conversation.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace ui {

namespace {

constexpr int deepestRequest = 16;
/// Keys and values: a request has a handful, and a megabyte of brackets would take fifty in memory.
constexpr int mostParts = 1000;
/// Bytes of what is looked for in a list: nobody types as much.
constexpr std::size_t longestWanted = 1000;

nlohmann::json parse(std::string_view line) {
    if (line.size() > longestRequest) throw Refused{"the request is longer than 1 MiB"};
    bool tooDeep = false;
    int parts = 0;
    const auto small = [&](int depth, nlohmann::json::parse_event_t /*event*/, nlohmann::json& /*value*/) {
        tooDeep = tooDeep || depth > deepestRequest;
        return !tooDeep && ++parts <= mostParts;
    };
    nlohmann::json request = nlohmann::json::parse(line, small, false);
    if (tooDeep) throw Refused{"the request is nested too deep"};
    if (parts > mostParts) throw Refused{"the request has too many parts"};
    if (request.is_discarded()) throw Refused{"the request is no JSON in UTF-8"};
    if (!request.is_object()) throw Refused{"the request is no object"};
    return request;
}

std::string dump(const nlohmann::json& json) {
    // A database may hold bytes that are no UTF-8.
    return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace

std::string textOf(const nlohmann::json& request, const char* key) {
    const auto found = request.find(key);
    if (found == request.end() || !found->is_string()) throw Refused{std::string(key) + " takes a text"};
    return found->get<std::string>();
}

const nlohmann::json& contentOf(const nlohmann::json& request) {
    const auto found = request.find("to");
    if (found == request.end()) throw Refused{"set takes a content under to"};
    return *found;
}

struct Conversation::Pending {
    std::uint64_t number;
    nlohmann::json content = nlohmann::json::object();
};

Conversation::Conversation(Desktop& desktop, Write write)
    : desktop_(desktop), write_(std::move(write)), events_(std::make_unique<nlohmann::json>(nlohmann::json::array())) {
    desktop_.setSink([this](nlohmann::json event) { events_->push_back(std::move(event)); });
    addShared();
}

Conversation::~Conversation() {
    desktop_.setSink(nullptr);
}

void Conversation::addShared() {
    using nlohmann::json;
    add("fire", [this](const json& request, json&) { desktop_.fire(textOf(request, "fire"), false); });
    add("set", [this](const json& request, json&) { desktop_.set(textOf(request, "set"), contentOf(request), false); },
        {"to"});
    add("answer", [this](const json& request, json&) { desktop_.answer(request["answer"]); });
    add("list", [this](const json& request, json&) { browse(request); }, {"holds", "from"});
    add("get", [this](const json& request, json& reply) { reply["state"] = desktop_.get(textOf(request, "get")); });
}

void Conversation::add(std::string key, Serve serve, std::vector<std::string> with) {
    requests_.insert_or_assign(std::move(key), Request{std::move(serve), std::move(with)});
}

void Conversation::receive(std::string_view line) {
    flush();
    pending_ = std::make_shared<Pending>(Pending{++received_});
    nlohmann::json request;
    std::string key;
    try {
        request = parse(line);
        key = keyOf(request);
    } catch (const Refused& refused) {
        onMalformed_(refused.why);
        return tell({{"error", refused.why}});
    }
    try {
        serve(request, key);
    } catch (const Refused& refused) {
        tell({{"error", refused.why}});
    }
}

void Conversation::serve(const nlohmann::json& request, const std::string& key) {
    const bool looks = key == "list";  // it changes nothing, and a page may ask it by itself
    if (desktop_.waiting() && key != "answer" && !looks) throw Refused{"the open question has to be answered first"};
    if (!looks) desktop_.noteActivity();
    // A nested loop of the operation may send this reply and take further requests.
    const std::shared_ptr<Pending> pending = pending_;
    const Serve& serve = requests_.find(key)->second.serve;
    desktop_.attempt([&] { serve(request, pending->content); });
}

void Conversation::browse(const nlohmann::json& request) {
    const std::string wanted = request.contains("holds") ? textOf(request, "holds") : std::string();
    if (wanted.size() > longestWanted) throw Refused{"holds takes a text of up to 1000 bytes"};
    const nlohmann::json from = request.value("from", nlohmann::json(0U));
    if (!from.is_number_unsigned()) throw Refused{"from takes a place, counted from 0"};
    desktop_.browse(textOf(request, "list"), wanted, from.get<std::size_t>());
}

std::string Conversation::keyOf(const nlohmann::json& request) const {
    std::string key;
    for (const auto& [name, value] : request.items()) {
        if (!requests_.contains(name)) continue;
        if (!key.empty()) throw Refused{std::string("two requests in one: ").append(key).append(" and ").append(name)};
        key = name;
    }
    if (key.empty()) throw Refused{"the request is unknown"};
    const auto& with = requests_.find(key)->second.with;
    for (const auto& [name, value] : request.items())
        if (name != key && std::find(with.begin(), with.end(), name) == with.end())
            throw Refused{key + " has a key that it does not take"};
    return key;
}

void Conversation::tell(nlohmann::json event) {
    desktop_.flushChanges();
    events_->push_back(std::move(event));
}

void Conversation::note(const char* key, nlohmann::json content) {
    if (pending_) pending_->content[key] = std::move(content);
}

void Conversation::flush() {
    desktop_.flushChanges();
    if (const auto replied = std::exchange(pending_, nullptr))
        send(replied->number, replied->content);
    else if (!events_->empty())
        send(std::nullopt, nlohmann::json::object());
}

void Conversation::push() {
    desktop_.flushChanges();
    if (events_->empty()) return;
    nlohmann::json during = nlohmann::json::object();
    if (pending_) during["during"] = pending_->number;
    send(std::nullopt, during);
}

void Conversation::send(std::optional<std::uint64_t> number, const nlohmann::json& more) {
    const nlohmann::json events = std::exchange(*events_, nlohmann::json::array());
    std::string line = R"({"reply":)" + (number ? std::to_string(*number) : "null");
    line += R"(,"events":)" + dump(events);
    line += R"(,"waiting":)" + dump(desktop_.question());
    for (const auto& [key, value] : more.items()) line += "," + dump(key) + ":" + dump(value);
    write_(line + "}");
}

void Conversation::ended(const std::string& reason) {
    tell({{"ended", reason}});
    flush();
}

}  // namespace ui
