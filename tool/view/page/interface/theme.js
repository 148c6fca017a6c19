// Light or dark: what the system prefers, until a person decides.

const BACKGROUNDS = {
  light: {background: [0.93, 0.94, 0.95], edges: [0.1, 0.12, 0.15, 0.55]},
  dark: {background: [0.13, 0.145, 0.17], edges: [0.02, 0.025, 0.03, 0.7]},
};

export function followTheme(button, viewer) {
  const root = document.documentElement;
  const prefersDark = matchMedia('(prefers-color-scheme: dark)');
  let chosen = null;
  const apply = () => {
    const theme = chosen ?? (prefersDark.matches ? 'dark' : 'light');
    root.dataset.theme = theme;
    button.setAttribute('aria-pressed', String(theme === 'dark'));
    viewer.setBackground(BACKGROUNDS[theme]);
  };
  prefersDark.addEventListener('change', apply);
  button.addEventListener('click', () => {
    chosen = root.dataset.theme === 'dark' ? 'light' : 'dark';
    apply();
  });
  apply();
}
