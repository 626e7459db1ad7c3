// vellpaint: renders one effect or operation of the reference renderer onto
// a sample scene or a user's .bmp and mask, and writes a PNG.
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "PaintCanvas.h"
#include "PaintSettings.h"

using namespace vellpaint;

namespace {

using Text = const std::string&;

const char kUsage[] =
    "usage: vellpaint EFFECT [PARAMETER-FILE] [--set key=value]... [--size WxH]\n"
    "                 [--picture in.bmp [--mask mask.bmp]] [--image FILE.bmp]\n"
    "                 [--seed N] [--threads N] [--dither] -o out.png\n"
    "EFFECT: gradation, tile, stripe, uniform, blur, invert, edge, pattern (the\n"
    "isoline pattern) or mapping. The parameter file holds `key = value` lines\n"
    "named after the effect object's fields (colors as #RRGGBB, lists comma\n"
    "separated); --set adds one after the file. uniform takes color, blur radius,\n"
    "edge color and width; mapping also takes stretch (0..1). Without --picture\n"
    "the part is a star on a sample scene of 512x384 (or --size); without --mask\n"
    "the whole picture is painted. --image is the picture that mapping and the\n"
    "pattern types 13..15 place; without it they take a built-in landscape.\n";

struct Arguments {
    std::string effect, parameterFile, picture, mask, image, output;
    std::vector<std::string> assignments;
    int width = 512, height = 384;
    bool sizeGiven = false;
    vellrender::Options options;
};

void ParseSize(Text text, Arguments* a) {
    const std::size_t x = text.find('x');
    if (x == std::string::npos) throw InputError("--size: expected WxH, got " + Quoted(text));
    try {
        a->width = ParseInt(text.substr(0, x));
        a->height = ParseInt(text.substr(x + 1));
    } catch (const InputError& e) {
        throw InputError(std::string("--size: ") + e.what());
    }
    CheckSize(a->width, a->height, "--size");
    a->sizeGiven = true;
}

unsigned int ParseSeed(Text text) {
    const bool digits = !text.empty() && text.size() <= 10 &&
                        text.find_first_not_of("0123456789") == std::string::npos;
    const unsigned long long value = digits ? std::strtoull(text.c_str(), nullptr, 10) : 0;
    if (!digits || value > 0xFFFFFFFFull) {
        throw InputError("--seed: " + Quoted(text) + " is not a number 0..4294967295");
    }
    return static_cast<unsigned int>(value);
}

int ParseThreads(Text text) {
    int threads = -1;
    try {
        threads = ParseInt(text);
    } catch (const InputError&) {
    }
    if (threads < 0 || threads > 64) {
        throw InputError("--threads: " + Quoted(text) + " is not a count 0..64 (0: one per core)");
    }
    return threads;
}

struct Option {
    const char* name;
    void (*apply)(Text value, Arguments* a);
};
const Option kOptions[] = {
    {"--set", [](Text v, Arguments* a) { a->assignments.push_back(v); }},
    {"--size", [](Text v, Arguments* a) { ParseSize(v, a); }},
    {"--picture", [](Text v, Arguments* a) { a->picture = v; }},
    {"--mask", [](Text v, Arguments* a) { a->mask = v; }},
    {"--image", [](Text v, Arguments* a) { a->image = v; }},
    {"--seed", [](Text v, Arguments* a) { a->options.seed = ParseSeed(v); }},
    {"--threads", [](Text v, Arguments* a) { a->options.threads = ParseThreads(v); }},
    {"-o", [](Text v, Arguments* a) { a->output = v; }},
};

const Option& OptionNamed(Text name) {
    for (const Option& option : kOptions) {
        if (name == option.name) return option;
    }
    throw InputError("unknown option " + Quoted(name));
}

void AddPositional(Text arg, Arguments* a) {
    if (a->effect.empty()) {
        a->effect = arg;
    } else if (a->parameterFile.empty()) {
        a->parameterFile = arg;
    } else {
        throw InputError("unexpected argument " + Quoted(arg));
    }
}

Arguments ParseArguments(int argc, char** argv) {
    Arguments a;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--dither") {
            a.options.dither = true;
        } else if (arg.size() > 1 && arg[0] == '-') {
            const Option& option = OptionNamed(arg);
            if (i + 1 >= argc) throw InputError(arg + " needs a value");
            option.apply(argv[++i], &a);
        } else {
            AddPositional(arg, &a);
        }
    }
    if (a.effect.empty()) throw InputError("no effect given (vellpaint --help shows the usage)");
    if (a.output.empty()) throw InputError("no output file given (-o out.png)");
    if (!a.mask.empty() && a.picture.empty()) throw InputError("--mask needs --picture");
    if (a.sizeGiven && !a.picture.empty()) throw InputError("--size does not go with --picture");
    return a;
}

std::string ReadText(Text path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) throw InputError(path + ": cannot open it");
    std::string text;
    char buffer[4096];
    std::size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, file)) > 0) text.append(buffer, n);
    const bool failed = std::ferror(file) != 0;
    std::fclose(file);
    if (failed) throw InputError(path + ": cannot read it");
    return text;
}

void Fill(const Arguments& a, Job* job) {
    job->effect = EffectNamed(a.effect);
    if (!a.parameterFile.empty()) ApplyLines(*job, ReadText(a.parameterFile), a.parameterFile);
    for (Text assignment : a.assignments) {
        try {
            ApplyAssignment(*job, assignment);
        } catch (const InputError& e) {
            throw InputError(std::string("--set: ") + e.what());
        }
    }
}

// The effect's own picture: the --image file, or the demo picture for an
// effect that takes one.
void AttachImage(Text path, Job* job) {
    const bool placesImages = job->effect == Effect::kPattern || job->effect == Effect::kMapping;
    if (!path.empty() && !placesImages) throw InputError("--image goes with pattern or mapping");
    if (path.empty() && !TakesImage(*job)) return;
    BitmapImage image;
    if (path.empty()) {
        MakeDemoPicture(&image);
    } else {
        LoadEffectImage(path, &image);
    }
    SetImage(*job, image);
}

int Run(int argc, char** argv) {
    const Arguments a = ParseArguments(argc, argv);
    Job job;
    Fill(a, &job);
    AttachImage(a.image, &job);
    Canvas canvas;
    if (a.picture.empty()) {
        MakeScene(a.width, a.height, &canvas);
    } else {
        LoadCanvas(a.picture, a.mask, &canvas);
    }
    const int result = Render(job, canvas.Picture(), canvas.Part(), a.options);
    if (result != 0) {
        std::fprintf(stderr, "vellpaint: the renderer failed with %d (%s)\n", result,
                     result == -2 ? "out of memory" : "picture or part refused");
        return 1;
    }
    WritePng(canvas.image, a.output);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && (std::string(argv[1]) == "--help" || std::string(argv[1]) == "-h")) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    try {
        return Run(argc, argv);
    } catch (const InputError& e) {
        std::fprintf(stderr, "vellpaint: %s\n", e.what());
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "vellpaint: out of memory\n");
    }
    return 2;
}
