#pragma once

#include <optional>
#include <string>
#include <utility>

// The one way to fail: a function that can be refused returns a Status, or a Result with its value.
// The message is for people, one line without a full stop at the end of a path; nothing throws
// across a room.

namespace kelvro {

/// Done, or the reason why not.
class [[nodiscard]] Status {
  public:
    Status() = default;
    static Status Failure(std::string message) { return Status(std::move(message)); }

    bool ok() const { return !message_; }
    explicit operator bool() const { return ok(); }
    /// Why it failed; empty when it did not.
    std::string message() const { return message_.value_or(std::string()); }

    bool operator==(const Status&) const = default;

  private:
    explicit Status(std::string message) : message_(std::move(message)) {}

    std::optional<std::string> message_;
};

/// A value, or the reason why there is none.
template <typename T>
class [[nodiscard]] Result {
  public:
    // Both convert: `return value;` and `return Status::Failure("why");`.
    Result(T value) : value_(std::move(value)) {}
    Result(Status failure) : status_(std::move(failure)) {}

    bool ok() const { return value_.has_value(); }
    explicit operator bool() const { return ok(); }
    const Status& status() const { return status_; }
    std::string message() const { return status_.message(); }

    // Only when ok().
    const T& value() const& { return *value_; }
    T& value() & { return *value_; }
    T value() && { return *std::move(value_); }
    const T& operator*() const& { return *value_; }
    T& operator*() & { return *value_; }
    const T* operator->() const { return &*value_; }
    T* operator->() { return &*value_; }

  private:
    std::optional<T> value_;
    Status status_;
};

}  // namespace kelvro
