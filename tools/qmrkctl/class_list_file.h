// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/lease.h"
#include "tools/system/file_lock.h"

namespace qmrkctl {

/// The class list of a CA and the files beside it: <CA>.lease, <CA>.history and <CA>.lock. Paths have either separator.
struct ClassListPlace {
  std::string ca;
  std::string path;     ///< of the list, in the library's form, as applications name it
  std::string reached;  ///< of the list, as this program reaches it
  std::string lease;
  std::string history;
  std::string lock;
};

/// The place of the class list of a configuration.
/// @return no value if the CA has no list of its own, such as "GE" without a redirection.
std::optional<ClassListPlace> classListPlace(const Viewpoint& _viewpoint, const Configuration& _configuration);

/// The place of a list, from the path of its file.
/// @return no value if no list can have that name.
std::optional<ClassListPlace> classListPlaceOf(const std::string& _reachedPath);

/// A list and its leases at one moment. The list is kept byte for byte.
struct ClassListState {
  bool exists = false;
  std::string list;
  std::vector<Lease> leases;
  bool hasDamagedLeases = false;  ///< the file of the leases has more, which cannot be read
};

/// Reads a list and its leases; a missing list is empty.
/// @return no value if the list exists but cannot be read. Leases that cannot be read count as none.
std::optional<ClassListState> readClassList(const ClassListPlace& _place);

/// Writes the leases, then the list, each only if it changed. Call it with the lock held.
/// @return no value on success. If the leases cannot be written, the list is untouched.
std::optional<toolsystem::FileFailure> writeClassList(const ClassListPlace& _place, const ClassListState& _before,
                                                      const ClassListState& _after);

/// Writes the list first, then the leases: for ending leases. If the list cannot be written, the leases are untouched.
std::optional<toolsystem::FileFailure> writeSweptList(const ClassListPlace& _place, const ClassListState& _before,
                                                      const ClassListState& _after);

/// The text as applications read it, with LF for CR LF.
std::string withoutCarriageReturns(const std::string& _bytes);

/// The hash by which a process reports which list it has applied.
std::uint64_t classListHash(const std::string& _bytes);

}  // namespace qmrkctl
