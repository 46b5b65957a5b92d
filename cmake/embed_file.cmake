# cmake -DFILE=... -DSOURCE=... -DNAME=... -P embed_file.cmake: writes a C++ source that defines NAME
# as the bytes of FILE.
file(READ "${FILE}" bytes HEX)
string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
file(WRITE "${SOURCE}" "#include <string_view>

namespace autonotify {
namespace {

constexpr char ${NAME}_bytes[] = {
${bytes}
};

}  // namespace

extern const std::string_view ${NAME};
constinit const std::string_view ${NAME}{${NAME}_bytes, sizeof ${NAME}_bytes};

}  // namespace autonotify
")
