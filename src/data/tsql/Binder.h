// Resolves names and types of a statement against the catalogue and writes SQLite's statement.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "Catalogue.h"
#include "Conversion.h"
#include "ServerText.h"

namespace tsql {

// What is known of an expression that has been written.
struct Bound {
    Type type;
    bool nullable = true;
    bool identity = false;
    bool plainColumn = false;  // a table's own column, which carries its collation
    const Expression* literal = nullptr;
};

// A value that was cut from the binder's text.
struct WrittenValue {
    std::string_view text;
    Bound bound;
};

// An operand as it stands in the binder's text. What several operands have in common is known only after
// all are written; `coerceAll` then converts them where they stand, so that none is bound twice.
struct Piece {
    size_t start = 0, end = 0;
    Bound bound;
    Type to;  // that it is to be converted to

    WrittenValue in(std::string_view written, size_t offset) const {
        return {written.substr(start - offset, end - start), bound};
    }
};

struct OutputColumn {
    QString name;  // empty for a nameless expression
    Bound bound;
    size_t start = 0, end = 0;  // of its text
};

// One table of a FROM clause.
struct Source {
    Name alias;
    const Table* table = nullptr;
    std::vector<Column> derived;  // of a subquery instead of a table
    std::string sql;              // the quoted alias
    bool optional = false;        // the far side of an outer join, which may be missing

    const std::vector<Column>& columns() const { return table ? table->columns : derived; }
    int find(const Name& column) const;
    Bound bound(const Column& column) const;
};

struct Scope {
    std::vector<Source> sources;
    const Scope* outer = nullptr;
    const Select* grouped = nullptr;  // whose items must be grouped or aggregated
    bool inAggregate = false;
    bool qualify = false;
};

struct SelectPurpose {
    const Scope* outer = nullptr;
    bool named = false;                          // columns need names that a surrounding statement reads
    bool placeOrder = false;                     // rows of one table come in their place order
    const std::vector<Type>* targets = nullptr;  // columns that the values will be stored in
};

class Binder {
public:
    explicit Binder(Catalogue& catalogue) : m_catalogue(catalogue) { sql.reserve(512); }

    std::string sql;

    Catalogue& catalogue() { return m_catalogue; }

    // --- expressions
    Bound expression(const Expression& expression, Scope& scope);
    void condition(const Expression& expression, Scope& scope);
    // Converts what stands in `sql` from `start` on.
    void coerce(size_t start, Bound& bound, const Type& to, Purpose purpose, int style = 0);
    Piece piece(const Expression& expression, Scope& scope);
    Piece collatedPiece(const Expression& expression, Scope& scope);
    // Takes back what stands in `sql` from `start` on.
    std::string cut(size_t start);
    // The pieces stand in rising order.
    void coerceAll(std::span<Piece> pieces);
    void coerceAll(std::vector<Piece>&& pieces) { coerceAll(std::span(pieces)); }
    // An expression as a column stores it.
    void assigned(const Expression& expression, const Column& column, Scope& scope);

    // --- queries (SelectStatement.cpp)
    std::vector<OutputColumn> select(const Select& select, const SelectPurpose& purpose);
    // Writes FROM with its joins and fills the scope.
    void from(std::span<const TableReference> references, Scope& scope);
    Source source(const TableReference& reference);
    void sourceText(const TableReference& reference, Source& source);

private:
    friend class CallBinder;

    Bound literal(const Expression& expression);
    Bound column(const Expression& expression, const Scope& scope);
    Bound rowPlace(const Expression& expression, const Scope& scope);
    const Source& sourceNamed(const Name& qualifier, const Name& column, const Scope& scope);
    // `chained`: what follows at the same level brackets and checks the whole.
    Bound arithmetic(const Expression& expression, Scope& scope, bool chained = false);
    Bound concatenation(size_t start, const Bound& left, size_t middle, const Bound& right, bool chained);
    Bound caseOf(const Expression& expression, Scope& scope);
    void unnest(std::vector<Piece>& results, bool hasElse, size_t lastWhen);
    void compareCases(size_t start, const std::vector<Piece>& compared, std::vector<Piece>& results);
    Bound call(const Expression& expression, Scope& scope);  // Calls.cpp
    Bound conversion(const Expression& expression, Scope& scope);
    Bound subquery(const Expression& expression, Scope& scope);
    void compare(const Expression& left, const Expression& right, char16_t operation, Scope& scope);
    void compareAgain(const WrittenValue& left, const WrittenValue& right, char16_t operation);
    void compared(std::array<Piece, 2>& sides);
    static bool meetInOneType(std::span<Piece> pieces);
    void between(const Expression& expression, Scope& scope);
    void like(const Expression& expression, Scope& scope);
    void in(const Expression& expression, Scope& scope);
    void inSelect(const Expression& expression, Scope& scope);
    bool coerceLiteral(size_t start, const Bound& bound, const Type& to);
    void collate(size_t start, const Bound& bound);
    void wrap(size_t start, std::string_view before, std::string_view after);
    void checkGrouped(const Source& source, const Column& column, const Scope& scope) const;

    std::vector<OutputColumn> selectCore(const Select& select, const SelectPurpose& purpose);
    void selectItems(const Select& select, const SelectPurpose& purpose, Scope& scope,
                     std::vector<OutputColumn>& outputs);
    void starItems(const SelectItem& item, const SelectPurpose& purpose, const Scope& scope,
                   std::vector<OutputColumn>& outputs);
    void finishItem(size_t start, OutputColumn output, const SelectPurpose& purpose,
                    std::vector<OutputColumn>& outputs);
    void orderBy(const Select& select, const std::vector<OutputColumn>& outputs, Scope& scope,
                 bool placeOrder);
    bool isSelected(const Piece& value, const std::vector<OutputColumn>& outputs) const;
    int orderedOutput(const Expression& value, const std::vector<OutputColumn>& outputs) const;

    Catalogue& m_catalogue;
};

// Whether two expressions say the same.
bool sameExpression(const Expression& left, const Expression& right);
// Whether it is a call of COUNT, SUM and their kin itself, and whether one of several holds such a call.
bool isAggregate(const Expression& expression);
bool holdsAggregate(std::span<Expression* const> expressions);

}  // namespace tsql
