// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The number that a name consists of, as a process id or user id is written: without sign and leading zeros.
std::optional<std::uint32_t> numberOfName(std::string_view _name);

/// The processes that use the PID namespace of another process, as that one numbers them. Without the right to look at
/// it, and for the caller's own, every process has the number that it has for the caller.
class ProcessNames {
 public:
  /// @param _root "/proc/<id>/root" of the process; empty or of another form: the caller.
  explicit ProcessNames(const std::string& _root);

  /// The id of the process for the caller; 0 when there is no such process.
  /// @param _number that which it has in the namespace.
  std::uint32_t processId(std::uint32_t _number) const;

 private:
  void addProcess(const std::string& _process, std::uint64_t _namespace);

  bool isOwn_ = true;
  std::map<std::uint32_t, std::uint32_t> processIds_;
};

}  // namespace platform
