// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/lease.h"

#include <algorithm>

#include "tools/qmrkctl/class_list_text.h"
#include "tools/qmrkctl/json.h"
#include "tools/qmrkctl/utc_time.h"

namespace qmrkctl {
namespace {

bool holds(const std::vector<std::string>& _names, const std::string& _name) {
  return std::find(_names.begin(), _names.end(), _name) != _names.end();
}

bool isSameBoot(const Lease& _lease, const Clocks& _now) {
  return !_lease.bootId.empty() && _lease.bootId == _now.boot.bootId;
}

// The end of the year 9999. Times are added and subtracted, so whoever may write the file must not choose any number.
constexpr std::int64_t latestTime = 253'402'300'799'999;
constexpr std::int64_t noTime = -1;

std::int64_t timeFrom(const Json& _value) {
  if (!_value.is_number_integer()) return noTime;
  const auto time = _value.get<std::int64_t>();
  return time >= 0 && time <= latestTime ? time : noTime;
}

bool hasTimes(const Lease& _lease) {
  return _lease.since != noTime && _lease.until != noTime && _lease.untilUptime != noTime;
}

Lease leaseFrom(const Json& _object) {
  Lease lease;
  for (const Json& name : _object.at("classes")) {
    // Whoever may write the file may write the list, but not what can be no class.
    if (isClassName(name.get<std::string>())) lease.classes.push_back(name.get<std::string>());
  }
  lease.since = timeFrom(_object.at("since"));
  lease.until = timeFrom(_object.at("until"));
  lease.bootId = _object.value("bootId", "");
  lease.untilUptime = timeFrom(_object.value("untilUptime", Json(0)));
  lease.who = _object.value("who", "");
  lease.reason = _object.value("reason", "");
  return lease;
}

Json leaseJson(const Lease& _lease) {
  return {{"classes", _lease.classes}, {"since", _lease.since},
          {"until", _lease.until},     {"untilText", utcText(_lease.until)},
          {"bootId", _lease.bootId},   {"untilUptime", _lease.untilUptime},
          {"who", _lease.who},         {"reason", _lease.reason}};
}

}  // namespace

Clocks clocksNow() { return {millisecondsNow(), toolsystem::bootTime()}; }

Lease leaseOf(const std::vector<std::string>& _classes, std::chrono::milliseconds _duration, const Clocks& _now) {
  Lease lease;
  lease.classes = _classes;
  lease.since = _now.wall;
  lease.until = _now.wall + _duration.count();
  lease.bootId = _now.boot.bootId;
  lease.untilUptime = _now.boot.milliseconds + _duration.count();
  return lease;
}

std::map<std::string, std::int64_t> endsOf(const std::vector<Lease>& _leases) {
  std::map<std::string, std::int64_t> ends;
  for (const Lease& lease : _leases) {
    for (const std::string& name : lease.classes)
      ends[name] = std::max(ends[name], lease.until);
  }
  return ends;
}

std::chrono::milliseconds timeLeft(const Lease& _lease, const Clocks& _now) {
  std::int64_t left = _lease.until - _now.wall;
  if (isSameBoot(_lease, _now)) {
    left = _lease.untilUptime - _now.boot.milliseconds;
  } else if (_now.wall < _lease.since) {
    left = 0;
  }
  return std::chrono::milliseconds(std::max<std::int64_t>(left, 0));
}

bool isOver(const Lease& _lease, const Clocks& _now) { return timeLeft(_lease, _now).count() == 0; }

std::string leasesText(const std::vector<Lease>& _leases) {
  Json leases = Json::array();
  for (const Lease& lease : _leases)
    leases.push_back(leaseJson(lease));
  const Json object = {{"version", 1}, {"leases", leases}};
  return object.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::vector<Lease> parseLeases(std::string_view _text) {
  std::vector<Lease> leases;
  const Json object = Json::parse(_text, nullptr, false);
  if (!object.is_object() || !object.contains("leases") || !object["leases"].is_array()) return leases;
  for (const Json& each : object["leases"]) {
    try {
      const Lease lease = leaseFrom(each);
      if (hasTimes(lease)) leases.push_back(lease);
    } catch (const Json::exception&) {
      continue;
    }
  }
  return leases;
}

bool hasDamagedLeases(std::string_view _text) {
  if (_text.empty()) return false;
  const Json object = Json::parse(_text, nullptr, false);
  if (!object.is_object() || !object.contains("leases") || !object["leases"].is_array()) return true;
  return parseLeases(_text).size() != object["leases"].size();
}

Swept sweep(const std::string& _list, const std::vector<Lease>& _leases, const Clocks& _now) {
  Swept swept{_list, {}, {}};
  const std::vector<std::string> listed = classesIn(_list);
  std::vector<std::string> over;
  for (Lease lease : _leases) {
    std::erase_if(lease.classes, [&listed](const std::string& _class) { return !holds(listed, _class); });
    if (isOver(lease, _now)) {
      over.insert(over.end(), lease.classes.begin(), lease.classes.end());
    } else if (!lease.classes.empty()) {
      swept.leases.push_back(lease);
    }
  }
  for (const Lease& lease : swept.leases) {
    std::erase_if(over, [&lease](const std::string& _class) { return holds(lease.classes, _class); });
  }
  swept.ended = classesMissingIn(over, {});
  swept.list = withoutClasses(_list, swept.ended, true);
  return swept;
}

std::vector<Lease> withoutLeased(std::vector<Lease> _leases, const std::vector<std::string>& _classes) {
  for (Lease& lease : _leases) {
    std::erase_if(lease.classes, [&_classes](const std::string& _class) { return holds(_classes, _class); });
  }
  std::erase_if(_leases, [](const Lease& _lease) { return _lease.classes.empty(); });
  return _leases;
}

}  // namespace qmrkctl
