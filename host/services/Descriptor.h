#pragma once

#include <unistd.h>

namespace autonotify::host {

/// An open file or folder, closed with the object. Numbers below 0 stand for none.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (isOpen()) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int get() const { return number_; }
  bool isOpen() const { return number_ >= 0; }

 private:
  int number_;
};

}  // namespace autonotify::host
