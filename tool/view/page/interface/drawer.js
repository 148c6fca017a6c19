// The panel with tree and details: beside the model where there is room, else a drawer in front of it.

export function followDrawer(page) {
  const {body} = page;
  const button = page.querySelector('.menu');
  const panel = page.getElementById('panel');
  const narrow = matchMedia('(max-width: 760px)');
  const setOpen = (isOpen) => {
    body.classList.toggle('panel-open', isOpen);
    button.setAttribute('aria-expanded', String(isOpen));
    panel.inert = !isOpen;
  };
  const toggle = () => setOpen(!body.classList.contains('panel-open'));
  const reset = () => setOpen(!narrow.matches);
  narrow.addEventListener('change', reset);
  page.querySelector('.shade').addEventListener('click', () => setOpen(false));
  panel.addEventListener('keydown', (event) => {
    if (event.key !== 'Escape' || !narrow.matches) return;
    event.stopPropagation();
    setOpen(false);
    button.focus();
  });
  reset();
  return {togglePanel: toggle, openPanel: () => setOpen(true)};
}
