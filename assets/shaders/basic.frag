#version 110
// The plain program: the texture tinted by the current colour.
uniform sampler2D texture1;
varying vec2 uv;
varying vec4 colour;

void main()
{
    gl_FragColor = texture2D(texture1, uv) * colour;
}
