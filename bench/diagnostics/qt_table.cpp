#include <QStandardItemModel>
#include <QString>
#include <QVariant>

#include "diagnostics/table.h"

namespace bench {

namespace {

enum column { number, share, name, known, count };

// What belongs to the row is kept with its first cell.
constexpr int severity_role = Qt::UserRole;
constexpr int type_role = Qt::UserRole + 1;

QStandardItem* item_with(const QVariant& value) {
  auto* item = new QStandardItem;
  item->setData(value, Qt::DisplayRole);
  return item;
}

class item_model final : public table {
 public:
  item_model() : model_(0, column::count) {}

  void build(std::size_t rows) override {
    each_finding(rows, [this](const finding& found) {
      QStandardItem* first = item_with(found.number);
      first->setData(found.severity, severity_role);
      first->setData(0, type_role);
      const auto length = static_cast<int>(found.name.size());
      model_.appendRow({first, item_with(found.share),
                        item_with(QString::fromLatin1(found.name.data(), length)),
                        item_with(found.known)});
    });
  }

  sums read() override {
    sums all;
    for (int row = 0; row < model_.rowCount(); ++row) {
      const QStandardItem* first = model_.item(row, column::number);
      all.numbers += first->data(Qt::DisplayRole).toInt();
      all.shares += model_.item(row, column::share)->data(Qt::DisplayRole).toDouble();
      all.characters += static_cast<std::size_t>(
          model_.item(row, column::name)->data(Qt::DisplayRole).toString().size());
      all.known += model_.item(row, column::known)->data(Qt::DisplayRole).toBool() ? 1 : 0;
      all.severities += first->data(severity_role).toInt();
      all.types += first->data(type_role).toInt();
    }
    return all;
  }

  void widen() override { model_.setColumnCount(column::count + 2); }
  void narrow() override { model_.setColumnCount(column::count); }

 private:
  QStandardItemModel model_;
};

}  // namespace

table_library qt_table() { return library_of<item_model>("QStandardItemModel"); }

}  // namespace bench
