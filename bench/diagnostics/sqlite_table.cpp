#include <sqlite3.h>

#include <cstdlib>
#include <memory>

#include "diagnostics/table.h"

namespace bench {

namespace {

struct closer {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

class database final : public table {
 public:
  database() {
    sqlite3* opened = nullptr;
    check(sqlite3_open(":memory:", &opened));
    database_.reset(opened);
    run("CREATE TABLE finding(type INTEGER, severity INTEGER, number INTEGER, share REAL,"
        " name TEXT, known INTEGER)");
  }

  void build(std::size_t rows) override {
    const statement insert = prepared("INSERT INTO finding VALUES(0, ?, ?, ?, ?, ?)");
    run("BEGIN");
    each_finding(rows, [&](const finding& found) {
      sqlite3_bind_int(insert.get(), 1, found.severity);
      sqlite3_bind_int(insert.get(), 2, found.number);
      sqlite3_bind_double(insert.get(), 3, found.share);
      sqlite3_bind_text(insert.get(), 4, found.name.data(), static_cast<int>(found.name.size()),
                        SQLITE_STATIC);
      sqlite3_bind_int(insert.get(), 5, found.known ? 1 : 0);
      sqlite3_step(insert.get());
      check(sqlite3_reset(insert.get()));
    });
    run("COMMIT");
  }

  sums read() override {
    const statement select =
        prepared("SELECT type, severity, number, share, name, known FROM finding");
    sums all;
    while (sqlite3_step(select.get()) == SQLITE_ROW) {
      all.types += sqlite3_column_int(select.get(), 0);
      all.severities += sqlite3_column_int(select.get(), 1);
      all.numbers += sqlite3_column_int(select.get(), 2);
      all.shares += sqlite3_column_double(select.get(), 3);
      sqlite3_column_text(select.get(), 4);
      all.characters += static_cast<std::size_t>(sqlite3_column_bytes(select.get(), 4));
      all.known += sqlite3_column_int(select.get(), 5);
    }
    return all;
  }

  void widen() override {
    run("ALTER TABLE finding ADD COLUMN fifth");
    run("ALTER TABLE finding ADD COLUMN sixth");
  }
  void narrow() override {
    run("ALTER TABLE finding DROP COLUMN sixth");
    run("ALTER TABLE finding DROP COLUMN fifth");
  }

 private:
  using statement = std::unique_ptr<sqlite3_stmt, closer>;

  static void check(int result) {
    if (result != SQLITE_OK) {
      std::abort();
    }
  }
  void run(const char* command) {
    check(sqlite3_exec(database_.get(), command, nullptr, nullptr, nullptr));
  }
  statement prepared(const char* command) {
    sqlite3_stmt* made = nullptr;
    check(sqlite3_prepare_v2(database_.get(), command, -1, &made, nullptr));
    return statement(made);
  }

  std::unique_ptr<sqlite3, closer> database_;
};

}  // namespace

table_library sqlite_table() { return library_of<database>("SQLite"); }

}  // namespace bench
