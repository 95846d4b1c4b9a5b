#include "remote/change_feed.hpp"

#include <vector>

namespace station::remote {

ChangeFeed::Subscription& ChangeFeed::Subscription::operator=(Subscription&& other) noexcept {
    if (this != &other) {
        reset();
        feed_ = other.feed_;
        id_ = other.id_;
        other.feed_ = nullptr;
    }
    return *this;
}

void ChangeFeed::Subscription::reset() {
    if (feed_ != nullptr) feed_->listeners_.erase(id_);
    feed_ = nullptr;
}

ChangeFeed::ChangeFeed(CommandSet& commands) : commands_(commands) {
    commands_.actions().watchLine(line_);
    commands_.changed = [this] { changed(); };
}

ChangeFeed::Subscription ChangeFeed::subscribe(Listener listener) {
    const int id = nextId_++;
    listeners_.emplace(id, std::move(listener));
    return Subscription(*this, id);
}

void ChangeFeed::changed() {
    if (due_) return;
    due_ = true;
    if (wake) wake();
}

void ChangeFeed::deliver() {
    due_ = false;
    ++deliveries_;
    const StateList changed = commands_.changes();
    if (changed.empty()) return;
    ++pushes_;
    // A subscriber may end its own or another's subscription while it is told.
    std::vector<int> ids;
    for (const auto& [id, listener] : listeners_) ids.push_back(id);
    for (const int id : ids)
        if (const auto it = listeners_.find(id); it != listeners_.end()) {
            const Listener listener = it->second;
            listener(changed);
        }
}

void ChangeFeed::restart() {
    commands_.changes();
    due_ = false;
}

}  // namespace station::remote
