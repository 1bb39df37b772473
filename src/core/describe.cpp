#include "core/describe.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace zor {
namespace describe {

namespace {

// The head of the list of entries. Constant-initialised, so it is null
// before any entry's constructor runs, whatever the order of the objects.
const Entry* gHead = nullptr;

std::string trim(const std::string& s) {
    const std::size_t b = s.find_first_not_of(' '), e = s.find_last_not_of(' ');
    return b == std::string::npos ? std::string() : s.substr(b, e - b + 1);
}

std::vector<std::string> splitDecl(const char* decl) {
    std::vector<std::string> out;
    std::string cur;
    for (const char* c = decl; *c != '\0'; ++c) {
        if (*c == ',') {
            out.push_back(trim(cur));
            cur.clear();
        } else {
            cur += *c;
        }
    }
    if (!trim(cur).empty()) out.push_back(trim(cur));
    return out;
}

// "const Zor32f twist[3][4]" -> name twist, C type "const Zor32f", shape 3 4;
// "const Zor32f *coeffs" -> coeffs, "const Zor32f*".
void parseOne(Param& p, std::string d) {
    std::size_t br = d.find('[');
    if (br != std::string::npos) {
        for (std::size_t i = br; i < d.size(); ++i)
            if (d[i] == '[') p.shape.push_back(std::atoi(d.c_str() + i + 1));
        d = trim(d.substr(0, br));
    }
    std::size_t n = d.size();
    while (n > 0 && (std::isalnum(static_cast<unsigned char>(d[n - 1])) || d[n - 1] == '_')) --n;
    p.name = d.substr(n);
    std::string t = trim(d.substr(0, n));
    bool star = false;
    while (!t.empty() && t.back() == '*') {
        star = true;
        t = trim(t.substr(0, t.size() - 1));
    }
    p.cType = star ? t + "*" : t;
}

// Layout codes of a name: "zoriYCbCrToRGB_8u_P3AC4R" -> P3, AC4.
std::vector<std::string> layoutCodes(const std::string& name) {
    std::string s = name.substr(name.rfind('_') + 1);
    if (!s.empty() && s.back() == 'R') s.pop_back();
    if (!s.empty() && s.back() == 'I') s.pop_back();
    std::vector<std::string> codes;
    for (std::size_t i = 0; i < s.size();) {
        std::size_t j = i + (s[i] == 'A' ? 1 : 0) + 1;
        while (j < s.size() && std::isdigit(static_cast<unsigned char>(s[j]))) ++j;
        codes.push_back(s.substr(i, j - i));
        i = j;
    }
    return codes;
}

bool isImage(const Param& p) {
    return p.kind != Kind::Roi && p.kind != Kind::Value && p.kind != Kind::Pointer;
}

void escape(std::string& out, const std::string& s) {
    out += '"';
    for (char c : s) {
        if (c == '"' || c == '\\') out += '\\';
        out += c;
    }
    out += '"';
}

}  // namespace

Entry::Entry(const char* n, ZorStatus (*i)(const Arg*), std::vector<Param> (*p)())
    : name(n), invoke(i), params(p), next(gHead) {
    gHead = this;
}

int cArgs(Kind k) {
    switch (k) {
        case Kind::C: case Kind::P3: case Kind::P3S: case Kind::P4: return 2;
        case Kind::P2: return 4;
        default: return 1;
    }
}

const char* kindName(Kind k) {
    static const char* const names[] = {"C", "wholeC", "P3", "P3S", "wholeP3", "P4", "P2", "roi", "value", "pointer"};
    return names[static_cast<int>(k)];
}

const char* dirName(Dir d) {
    static const char* const names[] = {"", "in", "out", "inout"};
    return names[static_cast<int>(d)];
}

void finishGroup(std::vector<Param>& ps, const char* text, const char* decl) {
    const std::vector<std::string> pieces = splitDecl(decl);
    std::size_t next = 0;
    for (Param& p : ps) {
        p.group = text;
        p.decl = decl;
        if (p.kind == Kind::C && pieces.size() == 1) p.kind = Kind::WholeC;
        if ((p.kind == Kind::Value || p.kind == Kind::Pointer) && next < pieces.size()) {
            parseOne(p, pieces[next++]);
            p.decl = pieces[next - 1];
        }
    }
}

std::vector<Param> join(std::initializer_list<std::vector<Param>> groups) {
    std::vector<Param> out;
    for (const auto& g : groups) out.insert(out.end(), g.begin(), g.end());
    return out;
}

const std::vector<Function>& all() {
    static const std::vector<Function> table = [] {
        std::vector<Function> t;
        for (const Entry* e = gHead; e != nullptr; e = e->next) {
            Function f{e->name, e->params(), e->invoke};
            // The layout codes name the source, then the destination (one code:
            // both). An AC4 output keeps its alpha (AP4 outputs copy theirs),
            // unless its group says otherwise (OUT_AC4_FILLED: alpha written).
            const std::vector<std::string> codes = layoutCodes(f.name);
            for (Param& p : f.params) {
                if (!isImage(p) || codes.empty() || p.dir == Dir::In) continue;
                const std::string& c = p.dir == Dir::Out ? codes.back() : codes.front();
                p.keepsAlpha = c == "AC4" && p.group.rfind("OUT_AC4_FILLED", 0) != 0;
            }
            t.push_back(std::move(f));
        }
        std::sort(t.begin(), t.end(), [](const Function& a, const Function& b) { return a.name < b.name; });
        return t;
    }();
    return table;
}

const Function* find(const std::string& name) {
    const auto& t = all();
    auto it = std::lower_bound(t.begin(), t.end(), name, [](const Function& f, const std::string& n) { return f.name < n; });
    return it != t.end() && it->name == name ? &*it : nullptr;
}

std::string json(const std::vector<Function>& fns) {
    std::string o = "[\n";
    for (std::size_t i = 0; i < fns.size(); ++i) {
        const Function& f = fns[i];
        o += "  {\"name\": ";
        escape(o, f.name);
        o += ", \"params\": [";
        for (std::size_t j = 0; j < f.params.size(); ++j) {
            const Param& p = f.params[j];
            o += j ? ",\n    {" : "\n    {";
            o += "\"kind\": \"";
            o += kindName(p.kind);
            o += "\", \"group\": ";
            escape(o, p.group);
            o += ", \"decl\": ";
            escape(o, p.decl);
            o += ", \"cArgs\": " + std::to_string(cArgs(p.kind));
            if (p.dir != Dir::None) o += std::string(", \"dir\": \"") + dirName(p.dir) + "\"";
            if (!p.type.empty()) o += ", \"type\": \"" + p.type + "\", \"bytes\": " + std::to_string(p.bytes);
            if (isImage(p)) {
                o += ", \"channels\": " + std::to_string(p.channels) + ", \"v\": " + std::to_string(p.v) +
                     ", \"h\": " + std::to_string(p.h) + ", \"step\": \"" + (p.elements ? "elements" : "bytes") +
                     "\", \"keepsAlpha\": " + (p.keepsAlpha ? "true" : "false");
                if (p.kind == Kind::WholeP3) o += std::string(", \"chroma\": \"") + (p.chromaUp ? "ceil" : "floor") + "\"";
            }
            if (p.kind == Kind::Value || p.kind == Kind::Pointer) {
                o += ", \"name\": ";
                escape(o, p.name);
                o += ", \"cType\": ";
                escape(o, p.cType);
            }
            if (p.kind == Kind::Pointer) {
                o += ", \"shape\": [";
                for (std::size_t k = 0; k < p.shape.size(); ++k) o += (k ? ", " : "") + std::to_string(p.shape[k]);
                o += std::string("], \"nullable\": ") + (p.nullable ? "true" : "false");
            }
            o += "}";
        }
        o += "]}";
        o += i + 1 < fns.size() ? ",\n" : "\n";
    }
    o += "]\n";
    return o;
}

}  // namespace describe
}  // namespace zor
