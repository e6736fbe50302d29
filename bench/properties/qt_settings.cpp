#include <QSettings>
#include <QString>
#include <QVariant>
#include <vector>

#include "properties/settings.h"

namespace bench {

namespace {

// A format that reads nothing and writes nothing, in a file that cannot be.
QSettings::Format memory_only() {
  static const QSettings::Format format = QSettings::registerFormat(
      "none", [](QIODevice&, QSettings::SettingsMap&) { return true; },
      [](QIODevice&, const QSettings::SettingsMap&) { return true; });
  return format;
}

class qt final : public settings {
 public:
  qt(const std::vector<setting_key>& keys, number_kind /*kind*/)
      : settings_(QStringLiteral("/dev/null/settings.none"), memory_only()) {
    keys_.reserve(keys.size());
    for (const setting_key& key : keys) {
      keys_.push_back(QString::fromStdString(joined(key, "/")));
    }
  }

  void set(std::size_t key, int value) override { settings_.setValue(keys_[key], value); }
  void set(std::size_t key, double value) override { settings_.setValue(keys_[key], value); }
  int get_integer(std::size_t key) override { return settings_.value(keys_[key]).toInt(); }
  double get_real(std::size_t key) override { return settings_.value(keys_[key]).toDouble(); }

 private:
  std::vector<QString> keys_;
  QSettings settings_;
};

}  // namespace

settings_library qt_settings() { return library_of<qt>("QSettings"); }

}  // namespace bench
