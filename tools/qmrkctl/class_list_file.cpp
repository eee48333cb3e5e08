// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/class_list_file.h"

#include <algorithm>

#include "diagnostics/status_page_values.h"
#include "platform/native_path.h"
#include "tools/qmrkctl/file_bytes.h"

namespace qmrkctl {
namespace {

constexpr std::string_view namePrefix = "qmrk_logging_";
constexpr std::string_view nameSuffix = ".init";

// No value: it is there, or may be, and cannot be read.
std::optional<std::string> bytesOf(const std::string& _path, const toolsystem::PathFacts& _facts) {
  if (_facts.kind == toolsystem::PathKind::missing) return std::string();
  return bytesOfFile(_path);
}

std::optional<toolsystem::FileFailure> writeLeases(const ClassListPlace& _place, const ClassListState& _before,
                                                   const ClassListState& _after) {
  const std::string leases = leasesText(_after.leases);
  return leases == leasesText(_before.leases) ? std::nullopt : toolsystem::replaceFile(_place.lease, leases);
}

std::optional<toolsystem::FileFailure> writeList(const ClassListPlace& _place, const ClassListState& _before,
                                                 const ClassListState& _after) {
  if (_before.exists && _before.list == _after.list) return std::nullopt;
  return toolsystem::replaceFile(_place.reached, _after.list);
}

}  // namespace

std::optional<ClassListPlace> classListPlaceOf(const std::string& _reachedPath) {
  const std::size_t begin = _reachedPath.find_last_of("\\/") + 1;
  const std::string name = _reachedPath.substr(begin);
  if (!name.starts_with(namePrefix) || !name.ends_with(nameSuffix)) return std::nullopt;
  if (name.size() <= namePrefix.size() + nameSuffix.size()) return std::nullopt;
  ClassListPlace place;
  place.ca = name.substr(namePrefix.size(), name.size() - namePrefix.size() - nameSuffix.size());
  place.path = _reachedPath;
  place.reached = _reachedPath;
  const std::string beside = _reachedPath.substr(0, begin) + place.ca;
  place.lease = beside + ".lease";
  place.history = beside + ".history";
  place.lock = beside + ".lock";
  return place;
}

std::optional<ClassListPlace> classListPlace(const Viewpoint& _viewpoint, const Configuration& _configuration) {
  const std::string& path = _configuration.init.path;
  const std::size_t nameBegin = path.find_last_of("\\/") + 1;
  // What stands beside the list stands beside the name, not beside what a link leads to.
  const std::string folder = reachedPath(_viewpoint, path.substr(0, std::max<std::size_t>(nameBegin, 1) - 1));
  auto place = classListPlaceOf(folder + "\\" + path.substr(nameBegin));
  if (!place) return place;
  place->path = path;
  if (_viewpoint.root.empty()) return place;
  place->reached = reachedPath(_viewpoint, path);
  // A link that the process made must not lead out of its files.
  place->lease = reachedPath(_viewpoint, path.substr(0, nameBegin) + place->ca + ".lease");
  return place;
}

std::optional<ClassListState> readClassList(const ClassListPlace& _place) {
  const toolsystem::PathFacts facts = toolsystem::factsOf(platform::nativePath(_place.reached));
  std::optional<std::string> list = bytesOf(_place.reached, facts);
  if (!list) return std::nullopt;
  const auto leases = bytesOf(_place.lease, toolsystem::factsOf(platform::nativePath(_place.lease)));
  return ClassListState{facts.kind == toolsystem::PathKind::file, std::move(*list), parseLeases(leases.value_or("")),
                        !leases || hasDamagedLeases(*leases)};
}

std::optional<toolsystem::FileFailure> writeClassList(const ClassListPlace& _place, const ClassListState& _before,
                                                      const ClassListState& _after) {
  // The lease first: one whose class is not on the list is harmless, a class that nobody takes off is not.
  if (auto failure = writeLeases(_place, _before, _after)) return failure;
  return writeList(_place, _before, _after);
}

std::optional<toolsystem::FileFailure> writeSweptList(const ClassListPlace& _place, const ClassListState& _before,
                                                      const ClassListState& _after) {
  if (auto failure = writeList(_place, _before, _after)) return failure;
  return writeLeases(_place, _before, _after);
}

std::string withoutCarriageReturns(const std::string& _bytes) {
  std::string text;
  for (std::size_t i = 0; i < _bytes.size(); ++i) {
    if (_bytes[i] != '\r' || i + 1 == _bytes.size() || _bytes[i + 1] != '\n') text += _bytes[i];
  }
  return text;
}

std::uint64_t classListHash(const std::string& _bytes) {
  return Quillmark_logging::status::hashOf(withoutCarriageReturns(_bytes));
}

}  // namespace qmrkctl
