// The least that a program with a window and OpenGL 3.3 does: one shader, sixty-four quads, then it
// waits for keys, each of which changes the colours. What the game takes is told as a ratio to what
// this takes.

#include <SDL.h>
#include <epoxy/gl.h>

namespace {

constexpr char vertex_text[] =
    "#version 330 core\n"
    "layout(location = 0) in vec2 corner;\n"
    "uniform vec4 box;\n"
    "void main() { gl_Position = vec4(corner * box.zw + box.xy, 0, 1); }\n";
constexpr char fragment_text[] =
    "#version 330 core\n"
    "uniform vec4 tint;\n"
    "out vec4 color;\n"
    "void main() { color = tint; }\n";

void section_add(GLuint program, GLenum stage, const char* text) {
    GLuint shader = glCreateShader(stage);
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    glAttachShader(program, shader);
}

void quads_draw(GLint box, GLint tint, float blue) {
    glClearColor(0, 0, 0.2f, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    for (int i = 0; i < 64; ++i) {
        auto column = static_cast<float>(i % 8);
        auto row = static_cast<float>(i / 8);
        glUniform4f(box, column * 0.25f - 1, row * 0.25f - 1, 0.2f, 0.2f);
        glUniform4f(tint, column / 8, row / 8, blue, 1);
        glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
    }
}

}  // namespace

int main() {
    SDL_Init(SDL_INIT_VIDEO);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_CORE);
    SDL_Window* window = SDL_CreateWindow("Floor", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                          1024, 832, SDL_WINDOW_OPENGL);
    SDL_GL_CreateContext(window);
    GLuint program = glCreateProgram();
    section_add(program, GL_VERTEX_SHADER, vertex_text);
    section_add(program, GL_FRAGMENT_SHADER, fragment_text);
    glLinkProgram(program);
    glUseProgram(program);
    constexpr float corners[] = {0, 0, 1, 0, 0, 1, 1, 1};
    GLuint array = 0;
    GLuint buffer = 0;
    glGenVertexArrays(1, &array);
    glBindVertexArray(array);
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBufferData(GL_ARRAY_BUFFER, sizeof corners, corners, GL_STATIC_DRAW);
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 2, GL_FLOAT, GL_FALSE, 0, nullptr);
    GLint box = glGetUniformLocation(program, "box");
    GLint tint = glGetUniformLocation(program, "tint");
    float blue = 0.25f;
    quads_draw(box, tint, blue);
    SDL_GL_SwapWindow(window);
    for (SDL_Event event; SDL_WaitEvent(&event) != 0 && event.type != SDL_QUIT;) {
        if (event.type == SDL_KEYDOWN) {
            blue = 1 - blue;
            quads_draw(box, tint, blue);
            SDL_GL_SwapWindow(window);
        }
    }
    SDL_Quit();
    return 0;
}
