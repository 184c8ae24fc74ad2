#include "export/export_writer.h"

#include "data/field_ids.h"
#include "export/ansi_output.h"
#include "export/field_texts.h"

namespace {

class CsvWriter : public ExportWriter {
public:
    CsvWriter(bool header, AnsiOutput& output, FieldTexts& texts) : header_(header), output_(output), texts_(texts) {}

    void WriteHeader(const TSList<DbJItem>& fields) override {
        if (header_) WriteLine(fields, [](const DbJItem& field) { return field.GetLabel(); });
    }
    void WriteEntry(const TSList<DbJItem>& entry) override {
        WriteLine(entry, [this](const DbJItem& field) { return texts_.TextOf(field); });
    }

private:
    template <typename TextOf>
    void WriteLine(const TSList<DbJItem>& fields, TextOf textOf) {
        bool first = true;
        for (const DbJItem& field : fields) {
            if (!field.IsFlag(kFieldExported)) continue;
            output_.PutBytes(first ? "\"" : "\",\"");
            output_.Put(textOf(field));
            first = false;
        }
        if (!first) output_.PutBytes("\"\r\n");
    }

    const bool header_;
    AnsiOutput& output_;
    FieldTexts& texts_;
};

class TextWriter : public ExportWriter {
public:
    TextWriter(bool labels, AnsiOutput& output, FieldTexts& texts) : labels_(labels), output_(output), texts_(texts) {}

    void WriteHeader(const TSList<DbJItem>&) override {}
    void WriteEntry(const TSList<DbJItem>& entry) override {
        for (const DbJItem& field : entry) {
            if (!field.IsFlag(kFieldExported)) continue;
            if (labels_) {
                output_.Put(field.GetLabel());
                // The body begins on a line of its own.
                output_.PutBytes(field.GetPropID() == kPropBody ? ":\r\n" : ": ");
            }
            output_.Put(texts_.TextOf(field));
            output_.PutBytes("\r\n");
        }
    }

private:
    const bool labels_;
    AnsiOutput& output_;
    FieldTexts& texts_;
};

}  // namespace

std::unique_ptr<ExportWriter> MakeExportWriter(ExportFormat format, bool labels, AnsiOutput& output,
                                               FieldTexts& texts) {
    if (format == ExportFormat::kText) return std::make_unique<TextWriter>(labels, output, texts);
    return std::make_unique<CsvWriter>(labels, output, texts);
}
