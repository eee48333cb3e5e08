// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/default_log_manager.h"
#include "tests/logmanager/names/name_pattern_oracle.h"
#include "tests/support/running_system.h"

namespace {

namespace bl = boost::logging;
using bl::default_log_manager;
using bl::set_up_change;
using bl::detail::CallableKind;
using bl::detail::Log;

/// The rules, word for word: every log replays all calls that have taken effect.
class Model {
 public:
  struct Connected {
    int index;
    std::string name;
    int id;
    bool operator==(const Connected&) const = default;
  };
  struct State {
    bool enabled = true;
    std::vector<Connected> modifiers;
    std::vector<Connected> appenders;
    bool operator==(const State&) const = default;
  };

  void record(const std::string& _pattern, const std::function<void(State&)>& _change) {
    (kept_.empty() ? calls_ : noted_).push_back({_pattern, _change});
  }

  void beginChange() { kept_.push_back(noted_.size()); }
  void applyChange() {
    if (kept_.size() == 1) {
      calls_.insert(calls_.end(), noted_.begin(), noted_.end());
      noted_.clear();
    }
    kept_.back() = noted_.size();
  }
  void endChange() {
    noted_.resize(kept_.back());
    kept_.pop_back();
  }

  State stateOf(const std::string& _log) const {
    State state;
    for (const Call& call : calls_) {
      if (testsupport::naiveSelects(call.pattern, _log)) call.change(state);
    }
    return state;
  }

 private:
  struct Call {
    std::string pattern;
    std::function<void(State&)> change;
  };
  std::vector<Call> calls_;
  std::vector<Call> noted_;
  /// For each change that is alive: how many noted calls stay when it ends.
  std::vector<std::size_t> kept_;
};

std::vector<Model::Connected>& of(Model::State& _state, CallableKind _kind) {
  return _kind == CallableKind::modifier ? _state.modifiers : _state.appenders;
}

struct Appender {
  int id;
  void operator()(const std::string&, const std::string&) const {}
};

struct Modifier {
  int id;
  void operator()(const std::string&, std::string&) const {}
};

/// A manager and the model of it, set up alike.
class Twins {
 public:
  ~Twins() {
    while (!changes_.empty())
      changes_.pop_back();
  }

  void add(CallableKind _kind, const std::string& _pattern, const std::string& _name, int _index) {
    const int id = ++latestId_;
    if (_kind == CallableKind::modifier) {
      bl::add_modifier(manager_, _pattern, Modifier{id}, _name, _index);
    } else {
      bl::add_appender(manager_, _pattern, Appender{id}, _name, _index);
    }
    model_.record(_pattern, [=](Model::State& _state) {
      std::vector<Model::Connected>& all = of(_state, _kind);
      const auto place = std::find_if(all.begin(), all.end(), [=](const auto& _one) { return _one.index > _index; });
      all.insert(place, {_index, _name, id});
    });
  }

  void remove(CallableKind _kind, const std::string& _pattern, const std::string& _name) {
    (_kind == CallableKind::modifier ? bl::del_modifier : bl::del_appender)(manager_, _pattern, _name);
    model_.record(_pattern, [=](Model::State& _state) {
      std::erase_if(of(_state, _kind), [&](const auto& _one) { return _one.name == _name; });
    });
  }

  void enable(const std::string& _pattern, bool _enabled) {
    bl::enable_logs(manager_, _pattern, _enabled ? bl::level_on : bl::level_off);
    model_.record(_pattern, [=](Model::State& _state) { _state.enabled = _enabled; });
  }

  void createLog(const std::string& _name) {
    manager_.log(_name);
    names_.insert(_name);
  }

  void beginChange() {
    if (changes_.size() == 3) return;
    changes_.push_back(std::make_unique<set_up_change>(manager_));
    model_.beginChange();
  }

  void applyChange() {
    if (changes_.empty()) return;
    changes_.back()->apply();
    model_.applyChange();
  }

  void endChange() {
    if (changes_.empty()) return;
    changes_.pop_back();
    model_.endChange();
  }

  void expectEqual() {
    for (const std::string& name : names_) {
      const Log& log = manager_.log(name);
      Model::State state;
      state.enabled = log.enabled.load();
      for (const CallableKind kind : {CallableKind::modifier, CallableKind::appender}) {
        if (log.callables.load() == nullptr) continue;
        for (const auto& callable : log.callables.load()->of(kind)) {
          const int id = kind == CallableKind::modifier ? callable->modify.target<Modifier>()->id
                                                        : callable->append.target<Appender>()->id;
          of(state, kind).push_back({callable->index, callable->name, id});
        }
      }
      ASSERT_TRUE(state == model_.stateOf(name)) << "log \"" << name << '"';
    }
  }

 private:
  default_log_manager manager_;
  Model model_;
  std::vector<std::unique_ptr<set_up_change>> changes_;
  std::set<std::string> names_;
  int latestId_ = 0;
};

class RandomCalls {
 public:
  explicit RandomCalls(unsigned int _seed) : random_(_seed) {}

  void make(Twins& _twins) {
    const CallableKind kind = random_() % 2 == 0 ? CallableKind::modifier : CallableKind::appender;
    const std::string name(1, static_cast<char>('M' + random_() % 3));
    switch (random_() % 8) {
      case 0:
      case 1:
        return _twins.createLog(text("ab."));
      case 2:
      case 3:
        return _twins.add(kind, pattern(), name, static_cast<int>(random_() % 3));
      case 4:
      case 5:
        return _twins.remove(kind, pattern(), name);
      default:
        return _twins.enable(pattern(), random_() % 2 == 0);
    }
  }

  void makeChange(Twins& _twins) {
    switch (random_() % 10) {
      case 0:
        return _twins.beginChange();
      case 1:
        return _twins.applyChange();
      case 2:
        return _twins.endChange();
      default:
        return make(_twins);
    }
  }

 private:
  std::string text(const std::string& _characters) {
    std::string result;
    for (auto size = random_() % 6; size > 0; --size)
      result += _characters[random_() % _characters.size()];
    return result;
  }

  std::string pattern() { return random_() % 6 == 0 ? "*" : text("ab.*"); }

  std::mt19937 random_;
};

TEST(SetUpModel, GivesLogsCreatedAtAnyMomentTheSameState) {
  for (int seed = 0; seed < testsupport::rounds(200); ++seed) {
    SCOPED_TRACE(seed);
    Twins twins;
    RandomCalls calls(static_cast<unsigned int>(seed));
    for (int i = 0; i < 120; ++i)
      calls.make(twins);
    twins.expectEqual();
    if (HasFatalFailure()) return;
  }
}

TEST(SetUpModel, AppliesTheCallsOfAChangeOnApplyOnly) {
  for (int seed = 0; seed < testsupport::rounds(200); ++seed) {
    SCOPED_TRACE(seed);
    Twins twins;
    RandomCalls calls(static_cast<unsigned int>(seed));
    for (int i = 0; i < 200; ++i) {
      calls.makeChange(twins);
      if (i % 10 == 0) twins.expectEqual();
      if (HasFatalFailure()) return;
    }
    twins.expectEqual();
    if (HasFatalFailure()) return;
  }
}

}  // namespace
