#version 110
// The colour alone; a bound texture is ignored.
void main()
{
    gl_FragColor = gl_Color;
}
