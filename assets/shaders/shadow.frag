#version 110
// Colour writes are off while shadows are drawn; only coverage counts.
void main()
{
    gl_FragColor = vec4(0.0, 0.0, 0.0, 1.0);
}
