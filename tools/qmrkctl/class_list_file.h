// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/lease.h"
#include "tools/system/file_lock.h"

namespace qmrkctl {

/// The class list of a CA, and what lies beside it: <CA>.lease, <CA>.history and <CA>.lock.
struct ClassListPlace {
  std::string ca;
  std::string path;     ///< of the list, in the library's form, as applications know it
  std::string reached;  ///< the same as this program reaches it
  std::string lease;
  std::string history;
  std::string lock;
};

/// @return no value when the CA has no list of its own, as "GE" without a redirection.
std::optional<ClassListPlace> classListPlace(const Viewpoint& _viewpoint, const Configuration& _configuration);

/// The place of the CA to which a list belongs, by the path of its file; no value: no list has such a name.
std::optional<ClassListPlace> classListPlaceOf(const std::string& _reachedPath);

/// What a list and its leases are at a moment. Bytes as they stand in the file.
struct ClassListState {
  bool exists = false;
  std::string list;
  std::vector<Lease> leases;
};

/// @return no value when the list is there and cannot be read.
std::optional<ClassListState> readClassList(const ClassListPlace& _place);

/// Writes the leases and then the list, those that changed. To be called with the lock.
std::optional<toolsystem::FileFailure> writeClassList(const ClassListPlace& _place, const ClassListState& _before,
                                                      const ClassListState& _after);

/// The same in the other order, for what ends leases.
std::optional<toolsystem::FileFailure> writeSweptList(const ClassListPlace& _place, const ClassListState& _before,
                                                      const ClassListState& _after);

/// The text as applications read it: CR LF becomes LF.
std::string withoutCarriageReturns(const std::string& _bytes);

/// The hash by which processes tell which list they have applied.
std::uint64_t classListHash(const std::string& _bytes);

}  // namespace qmrkctl
