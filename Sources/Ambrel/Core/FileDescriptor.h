#pragma once

#include <utility>

#include <unistd.h>

namespace ambrel {

/// Owns one open file descriptor; -1 where opening failed.
class FileDescriptor {
public:
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }

    [[nodiscard]] bool valid() const { return number_ >= 0; }
    [[nodiscard]] int number() const { return number_; }

private:
    int number_;
};

} // namespace ambrel
