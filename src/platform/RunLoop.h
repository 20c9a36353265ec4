#pragma once
#include <functional>

namespace uke {

// The main thread's run loop as the core sees it. Delayed messages and repeating
// timers always fire on the main thread; background work runs on a worker of the
// platform's choosing and must hop back with dispatchMain before touching screens.
class RunLoop {
public:
    using Task = std::function<void()>;
    virtual ~RunLoop() = default;

    // Runs `task` on the main thread after `seconds` (0 = after the current event).
    virtual void performAfterDelay(double seconds, Task task) = 0;
    // Runs `task` every `intervalSeconds` on the main thread for the life of the loop.
    virtual void scheduleRepeating(double intervalSeconds, Task task) = 0;
    // Wall-clock time, seconds since 1970.
    virtual double now() const = 0;
    virtual void dispatchMain(Task task) { performAfterDelay(0.0, std::move(task)); }
    virtual void dispatchBackground(Task task) = 0;
};

} // namespace uke
