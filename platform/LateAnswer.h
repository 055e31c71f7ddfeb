#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace quorvane {

/// An answer that a thread of its own works out, while whoever asked goes on. Nothing ever waits for that
/// thread, not even the end of the program, and it shares nothing with others but the place for its answer.
template <typename Answer>
class LateAnswer {
public:
    /// @param work  must not touch anything that the program owns: it may go on when that has gone. Where it
    ///     throws, or no thread can be had, the answer is an empty one.
    void Ask(std::function<Answer()> work)
    {
        place_ = std::make_shared<Place>();
        try {
            std::thread([place = place_, work = std::move(work)] { place->Put(Worked(work)); }).detach();
        } catch (const std::system_error&) {
            place_->Put({});
        }
    }

    /// @return nothing before the answer has come, and when it has been taken
    [[nodiscard]] std::optional<Answer> Take()
    {
        if (!place_)
            return std::nullopt;
        const std::lock_guard lock(place_->mutex);
        return std::exchange(place_->answer, std::nullopt);
    }

private:
    struct Place {
        void Put(Answer given)
        {
            const std::lock_guard lock(mutex);
            answer = std::move(given);
        }
        std::mutex mutex;
        std::optional<Answer> answer;
    };

    static Answer Worked(const std::function<Answer()>& work)
    {
        try {
            return work();
        } catch (const std::exception&) {
            return {};
        }
    }

    std::shared_ptr<Place> place_;
};

} // namespace quorvane
