// Shader programs: one text split into its two sections, compiled and linked.

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/gl/frame.h"
#include "platform/gl/opengl.h"
#include "platform/gl/state.h"
#include "platform/gpu.h"

namespace {

struct section {
    std::string_view marker;  // the line that stands before it
    GLenum stage;
};

constexpr section sections[] = {
    {"#vertex\n", GL_VERTEX_SHADER},
    {"#fragment\n", GL_FRAGMENT_SHADER},
};

// From behind the section's marker to the next marker or the end; empty without its marker.
std::string_view section_text(std::string_view source, const section& wanted) {
    std::size_t marker = source.find(wanted.marker);
    if (marker == std::string_view::npos) {
        return source.substr(source.size());
    }
    std::size_t begin = marker + wanted.marker.size();
    std::size_t end = source.size();
    for (const section& other : sections) {
        end = std::min(end, source.find(other.marker, begin));
    }
    return source.substr(begin, end - begin);
}

// An object's log, cut to the caller's memory. Nothing but its first failure is told.
template <typename get_log>
shader_result refused(GLuint object, get_log log, char* message, i64 message_size) {
    GLsizei length = 0;
    log(object, static_cast<GLsizei>(message_size), &length, message);
    return {false, {message, length}};
}

// Sections name the OpenGL that they were written for in their first line; this build's stands in
// its place.
std::string_view version_cut(std::string_view text) {
    return text.starts_with("#version") ? text.substr(std::min(text.find('\n'), text.size()))
                                        : text;
}

// Compiles a section and attaches it; the program keeps it alive from then on. A browser answers no
// question about a deleted shader.
shader_result section_compile(u32 program, const section& part, std::string_view text,
                              char* message, i64 message_size) {
    GLuint shader = glCreateShader(part.stage);
    std::string_view body = version_cut(text);
    const GLchar* parts[] = {shader_version, body.data()};
    const GLint lengths[] = {static_cast<GLint>(std::strlen(shader_version)),
                             static_cast<GLint>(body.size())};
    glShaderSource(shader, 2, parts, lengths);
    glCompileShader(shader);
    GLint ok = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &ok);
    shader_result result = ok != GL_FALSE
                               ? shader_result{true, {}}
                               : refused(shader, glGetShaderInfoLog, message, message_size);
    glAttachShader(program, shader);
    glDeleteShader(shader);
    return result;
}

}  // namespace

u32 shader_create() {
    return glCreateProgram();
}

void shader_destroy(u32 program) {
    frame_flush();
    glDeleteProgram(program);
    state_forget_program(program);
}

shader_result shader_source(u32 program, str source, char* message, i64 message_size) {
    frame_flush();
    state_forget_program(program);
    std::string_view text(source.data, static_cast<std::size_t>(source.length));
    for (const section& part : sections) {
        shader_result compiled =
            section_compile(program, part, section_text(text, part), message, message_size);
        if (!compiled.ok) {
            return compiled;
        }
    }
    glLinkProgram(program);
    GLint ok = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &ok);
    return ok != GL_FALSE ? shader_result{true, {}}
                          : refused(program, glGetProgramInfoLog, message, message_size);
}

i32 shader_get_uniform_location(u32 program, str name) {
    return glGetUniformLocation(program, std::string(name.begin(), name.end()).c_str());
}
