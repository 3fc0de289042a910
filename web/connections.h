#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <mutex>

namespace web {

/// The connections that a host serves at once, up to a limit. When it is reached, the one that has waited longest for
/// its request makes room: who says nothing keeps nobody out. Connections start and wait on the network thread and may
/// end on any.
class Connections {
public:
    /// A connection's place among them, from its start to its end.
    class Place {
    public:
        explicit Place(Connections& all);
        Place(const Place&) = delete;
        Place& operator=(const Place&) = delete;
        virtual ~Place();

        /// Whether the connection still waits for a request that anybody may send.
        void setWaiting(bool waiting);
        /// Gives the place up, because another connection needs it: the network closes.
        virtual void makeRoom() = 0;

    private:
        Connections& all_;
        std::list<Place*>::iterator waitingAt_;
        bool counted_ = true;
        bool waiting_ = false;
        friend class Connections;
    };

    explicit Connections(std::size_t most) : most_(most) {}
    /// The turn of a connection that reads on what nobody wants, so that its client sees the refusal; nothing where so
    /// many do that it would cost the others. On the network thread.
    [[nodiscard]] std::shared_ptr<void> beginDraining();
    /// Whether one more may come; makes room for it where that helps.
    [[nodiscard]] bool admit();

private:
    [[nodiscard]] Place* takeOldest();

    const std::size_t most_;
    std::mutex mutex_;
    std::size_t count_ = 0;
    std::shared_ptr<void> draining_ = std::make_shared<char>();
    std::list<Place*> waiting_;  ///< the one that has waited longest first
};

}  // namespace web
