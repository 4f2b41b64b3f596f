#include "layers/IncludeLayers.hpp"

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <regex>
#include <set>

namespace pendulon::test {

namespace fs = std::filesystem;

const LayerOrder& DeclaredLayers() {
    static const LayerOrder order = {
        {"platform"}, {"core"},          {"app"},    {"graphics"}, {"power"},          {"reports"},
        {"entryfile"}, {"configurators"}, {"wizard"}, {"planner"},  {"shell"}, {"desktop", "cli"}};
    return order;
}

namespace {

bool IsSource(const fs::path& path) {
    static const std::set<std::string> kExtensions = {".cpp", ".hpp", ".h", ".cc", ".hh", ".ipp"};
    return kExtensions.count(path.extension().string()) != 0;
}

// The folder of src/ a path below root lies in; empty for a file of root itself.
std::string FolderOf(const fs::path& relative) {
    auto it = relative.begin();
    if (it == relative.end() || std::next(it) == relative.end())
        return {};
    return it->string();
}

bool IsQtHeader(const std::string& header) {
    static const std::regex kQt(R"(^(Qt\w*(/.*)?|Q[A-Z]\w*(\.h)?)$)");
    return std::regex_match(header, kQt);
}

struct Include {
    int line = 0;
    bool quoted = false;
    std::string header;
};

std::vector<Include> ReadIncludes(const fs::path& file) {
    static const std::regex kInclude(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    std::vector<Include> includes;
    std::ifstream in(file);
    std::string text;
    for (int line = 1; std::getline(in, text); ++line) {
        std::smatch match;
        if (std::regex_search(text, match, kInclude))
            includes.push_back({line, match[1] == "\"", match[2]});
    }
    return includes;
}

// Strongly connected parts of a graph with more than one member, or with an edge to itself.
std::vector<std::vector<std::string>> Loops(const std::map<std::string, std::set<std::string>>& graph) {
    std::map<std::string, int> index, low;
    std::set<std::string> onStack;
    std::vector<std::string> stack;
    std::vector<std::vector<std::string>> loops;
    int next = 0;
    std::function<void(const std::string&)> visit = [&](const std::string& node) {
        index[node] = low[node] = next++;
        stack.push_back(node);
        onStack.insert(node);
        if (auto found = graph.find(node); found != graph.end()) {
            for (const std::string& to : found->second) {
                if (!index.count(to)) {
                    visit(to);
                    low[node] = std::min(low[node], low[to]);
                } else if (onStack.count(to)) {
                    low[node] = std::min(low[node], index[to]);
                }
            }
        }
        if (low[node] != index[node])
            return;
        std::vector<std::string> part;
        std::string member;
        do {
            member = stack.back();
            stack.pop_back();
            onStack.erase(member);
            part.push_back(member);
        } while (member != node);
        const auto edges = graph.find(node);
        const bool selfLoop = edges != graph.end() && edges->second.count(node) != 0;
        if (part.size() > 1 || selfLoop) {
            std::sort(part.begin(), part.end());
            loops.push_back(part);
        }
    };
    for (const auto& [node, edges] : graph)
        if (!index.count(node))
            visit(node);
    return loops;
}

std::string Join(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

}  // namespace

LayerReport CheckIncludeLayers(const fs::path& root, const LayerOrder& order) {
    LayerReport report;
    std::map<std::string, int> rank;
    for (size_t r = 0; r < order.size(); ++r)
        for (const std::string& folder : order[r]) rank[folder] = static_cast<int>(r);

    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file() && IsSource(entry.path()))
            files.push_back(fs::relative(entry.path(), root));
    std::sort(files.begin(), files.end());

    std::set<std::string> outside;
    std::map<std::string, std::set<std::string>> fileGraph, folderGraph;
    for (const fs::path& file : files) {
        ++report.files;
        const std::string name = file.generic_string();
        const std::string folder = FolderOf(file);
        if (folder.empty()) {
            report.problems.push_back(name + ": a source file outside every folder");
            continue;
        }
        if (!rank.count(folder) && outside.insert(folder).second)
            report.problems.push_back(folder + "/: a folder outside the declared order");
        fileGraph[name];
        for (const Include& include : ReadIncludes(root / file)) {
            const std::string where = name + ":" + std::to_string(include.line) + ": ";
            if (!include.quoted) {
                if (IsQtHeader(include.header) && folder != "desktop")
                    report.problems.push_back(where + "Qt header <" + include.header +
                                              "> outside desktop/");
                continue;
            }
            // As the compiler looks: beside the including file first, then from src/.
            std::optional<fs::path> target;
            for (const fs::path& candidate :
                 {file.parent_path() / include.header, fs::path(include.header)}) {
                if (fs::is_regular_file(root / candidate)) {
                    target = candidate.lexically_normal();
                    break;
                }
            }
            if (!target)
                continue;  // not a file of this tree (a generated or an outside header)
            ++report.includes;
            const std::string targetFolder = FolderOf(*target);
            fileGraph[name].insert(target->generic_string());
            if (targetFolder.empty() || targetFolder == folder)
                continue;
            folderGraph[folder].insert(targetFolder);
            if (!rank.count(folder) || !rank.count(targetFolder))
                continue;  // reported as a folder outside the order
            if (rank[targetFolder] >= rank[folder])
                report.problems.push_back(where + folder + "/ includes " +
                                          target->generic_string() + ", but " + targetFolder +
                                          "/ stands " +
                                          (rank[targetFolder] == rank[folder] ? "beside" : "above") +
                                          " it");
        }
    }
    for (const auto& loop : Loops(fileGraph))
        report.problems.push_back("files include each other in a loop: " + Join(loop));
    for (const auto& loop : Loops(folderGraph))
        report.problems.push_back("folders include each other in a loop: " + Join(loop));
    return report;
}

}  // namespace pendulon::test
