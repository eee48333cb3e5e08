// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "diagnostics/os_description.h"

namespace testsupport {

/// A system whose version block and registry the test chooses. By default the extended query works and the registry is
/// empty.
class FakeSystem : public Quillmark_logging::SystemFacts {
 public:
  explicit FakeSystem(const platform::VersionBlock& _block) : block_(_block) {}

  FakeSystem& withoutExtendedQuery() {
    extendedWorks_ = false;
    return *this;
  }
  FakeSystem& withoutAnyQuery() {
    basicWorks_ = false;
    return withoutExtendedQuery();
  }
  FakeSystem& withKey(const std::string& _key) {
    key_ = _key;
    return *this;
  }
  FakeSystem& withProductType(platform::RegistryResult _result, const std::string& _type) {
    typeResult_ = _result;
    type_ = _type;
    return *this;
  }

  bool queryVersion(platform::VersionQuery _query, platform::VersionBlock& _block) override {
    const bool extended = _query == platform::VersionQuery::extended;
    asked_.emplace_back(extended ? "extended" : "basic");
    if (extended ? !extendedWorks_ : !basicWorks_) return false;
    _block = block_;
    if (!extended) _block.suiteMask = _block.productType = 0;
    return true;
  }
  bool registryKeyExists(const std::string& _key) override {
    asked_.push_back(_key);
    return _key == key_;
  }
  platform::RegistryResult readRegistryText(const std::string& _key, const std::string& _value,
                                            std::string& _text) override {
    asked_.push_back(_key + ":" + _value);
    if (typeResult_ == platform::RegistryResult::done) _text = type_;
    return typeResult_;
  }
  void printToConsole(const std::string& _text) override { console_ += _text; }

  /// Every question, in order.
  const std::vector<std::string>& asked() const { return asked_; }
  const std::string& console() const { return console_; }

 private:
  platform::VersionBlock block_;
  bool extendedWorks_ = true;
  bool basicWorks_ = true;
  std::string key_;
  platform::RegistryResult typeResult_ = platform::RegistryResult::noKey;
  std::string type_;
  std::vector<std::string> asked_;
  std::string console_;
};

/// Version blocks without suite and product type.
inline platform::VersionBlock version(unsigned int _platformId, unsigned int _major, unsigned int _minor,
                                      const std::string& _servicePack) {
  platform::VersionBlock block;
  block.platformId = _platformId;
  block.major = _major;
  block.minor = _minor;
  block.servicePack = _servicePack;
  return block;
}

inline platform::VersionBlock ntVersion(unsigned int _major, unsigned int _minor, const std::string& _servicePack,
                                        unsigned int _build) {
  platform::VersionBlock block = version(2, _major, _minor, _servicePack);
  block.build = _build;
  return block;
}

/// The description of a system that can be described.
inline std::string described(FakeSystem& _system) {
  std::string text;
  EXPECT_TRUE(Quillmark_logging::describeSystem(_system, text));
  return text;
}

inline std::string described(const platform::VersionBlock& _block) {
  FakeSystem system(_block);
  return described(system);
}

}  // namespace testsupport
