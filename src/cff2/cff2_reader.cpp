#include "cff2/cff2_reader.h"

#include <string>

#include "cff2/cff2_record.h"
#include "geometry/job_records.h"
#include "platform/text_file.h"

namespace brindle {
namespace {

class CF2Loader {
public:
    CF2Loader(CNCGeomMgr& geometry, JobData& job) : geometry_(geometry), records_(geometry), job_(job) {}

    // Where the lines of the records go, if they are wanted.
    void KeepLines(std::vector<std::vector<size_t>>& lines) { lines_of_records_ = &lines; }

    void Load(const std::vector<std::string_view>& lines) {
        std::vector<std::string_view> words;
        for (size_t i = 0; i < lines.size(); ++i) {
            const cff2::Record record = cff2::ParseLine(lines[i], words);
            const auto* text = std::get_if<cff2::Text>(&record);
            const auto* cut_short = std::get_if<cff2::Short>(&record);
            const size_t line = i + 1;
            if (text != nullptr && i + 1 < lines.size()) AddText(*text, lines[i + 1]);
            if (text != nullptr || (cut_short != nullptr && cut_short->takes_next_line)) ++i;
            std::visit([this](const auto& r) { Add(r); }, record);
            if (lines_of_records_ != nullptr) KeepLine(line, std::holds_alternative<cff2::UpperRight>(record));
        }
    }

private:
    void KeepLine(size_t line, bool starts_main) {
        if (starts_main) lines_of_records_->clear();
        lines_of_records_->resize(static_cast<size_t>(geometry_.program_count()));
        if (lines_of_records_->empty()) return;
        std::vector<size_t>& lines = lines_of_records_->back();
        lines.resize(static_cast<size_t>(geometry_.GetRecordCount(geometry_.program_count() - 1)), line);
    }

    Point Scaled(Point p) const { return {p.x * scale_, p.y * scale_}; }
    CutAttributes Scaled(CutAttributes cut) const {
        cut.cut_width *= scale_;
        cut.bridge_width *= scale_;
        return cut;
    }

    void Add(const cff2::MainName& r) { main_name_ = r.name; }
    void Add(const cff2::UpperRight& r) {
        records_.StartMain(main_name_, {0.5 * (r.corner.x * scale_), 0.5 * (r.corner.y * scale_)}, true, true);
    }
    void Add(const cff2::SubStart& r) { records_.StartSub(r.name, {}, true, true); }
    void Add(const cff2::Units& r) {
        scale_ = r.inches ? kMillimetresPerInch : 1.0;
        job_.auto_inches = r.inches;
    }
    void Add(const cff2::Call& r) {
        records_.AddInclude({r.name, Scaled(r.place), {}, r.rotation, r.mirror_x, r.mirror_y});
    }
    void Add(const cff2::Line& r) { records_.AddLine(Scaled(r.cut), Scaled(r.start), Scaled(r.end)); }
    void Add(const cff2::Arc& r) {
        records_.AddArc(Scaled(r.cut), Scaled(r.start), Scaled(r.end), Scaled(r.center), r.radius);
    }
    void Add(const cff2::Text&) {}
    void Add(const cff2::Short&) {}
    void Add(const cff2::Other&) {}

    void AddText(const cff2::Text& r, std::string_view text) {
        CNCTextData::Fields fields;
        fields.start = Scaled(r.place);
        fields.rotation = r.rotation;
        fields.height = r.height;
        fields.first_length = 1.0;
        fields.second_length = 1.0;
        fields.text = text;
        records_.AddText(std::move(fields));
    }

    CNCGeomMgr& geometry_;
    JobRecords records_;
    JobData& job_;
    std::vector<std::vector<size_t>>* lines_of_records_ = nullptr;
    std::string main_name_;
    double scale_ = 1.0;
};

}  // namespace

void ReadCF2(std::string_view text, CNCGeomMgr& geometry, JobData& job) {
    geometry.Clear();
    CF2Loader(geometry, job).Load(SplitLines(text));
}

std::vector<std::vector<size_t>> LinesOfRecords(std::string_view text) {
    CNCGeomMgr geometry;
    JobData job;
    std::vector<std::vector<size_t>> lines;
    CF2Loader loader(geometry, job);
    loader.KeepLines(lines);
    loader.Load(SplitLines(text));
    return lines;
}

}  // namespace brindle
