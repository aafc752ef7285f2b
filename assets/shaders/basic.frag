#version 110
// The texel times the colour: every tint and fade of the game goes through here.
uniform sampler2D texture1;

void main()
{
    gl_FragColor = texture2D(texture1, gl_TexCoord[0].st) * gl_Color;
}
